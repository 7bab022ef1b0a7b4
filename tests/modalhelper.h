#pragma once

// Answers modal dialogs and message boxes in GUI tests. Arm the helper, then run the code
// that calls exec(): a timer finds QApplication::activeModalWidget() once it shows and
// acts on it from inside its event loop.
//
//     auto box = ModalHelper::answerNextMessageBox(QMessageBox::No);
//     editor.slotCancel();
//     QVERIFY2(box->handled, qPrintable(box->error));
//     QCOMPARE(box->text, QString("You have modified the data!\nDo you want to save the changes ?"));
//
// A helper waits for the next modal widget of its kind that shows after it was armed, so
// one can be armed for a calendar that an editor opens while the editor itself runs.
// When nothing of its kind shows within the time-out, it closes whatever modal widget is
// active (so that the test does not hang) and reports that in `error`.

#include <QDate>
#include <QMessageBox>
#include <QString>

#include <functional>
#include <memory>

class QAbstractItemView;
class QDialog;
class QTableWidget;
class QTreeWidget;
class QTreeWidgetItem;
class QWidget;

struct ModalOutcome
{
    bool handled = false; // the helper met its widget and acted on it
    QString className;    // of the modal widget that it met
    QString objectName;
    QString title;                        // its window title
    QString text;                         // a message box's text
    QMessageBox::StandardButtons buttons; // the buttons a message box offered
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QString error; // why it did not act, or what went wrong while it acted
};
using ModalTicket = std::shared_ptr<ModalOutcome>;

namespace ModalHelper {

inline constexpr int defaultTimeout = 5000;

// The general form: `matches` picks the widget, `action` acts on it and closes it (or
// leaves it open on purpose) and may put a failure into the outcome's `error`.
ModalTicket onNextModal(std::function<bool(QWidget *)> matches,
                        std::function<void(QWidget *, ModalOutcome &)> action,
                        int timeoutMs = defaultTimeout);

// Clicks `button` of the next QMessageBox and records its title and text.
ModalTicket answerNextMessageBox(QMessageBox::StandardButton button,
                                 int timeoutMs = defaultTimeout);

// Runs `before` on the next dialog (of class `className`, if given: QObject::inherits),
// then calls accept() or reject() on it.
ModalTicket acceptNextDialog(std::function<void(QDialog *)> before = {},
                             const char *className = nullptr, int timeoutMs = defaultTimeout);
ModalTicket rejectNextDialog(std::function<void(QDialog *)> before = {},
                             const char *className = nullptr, int timeoutMs = defaultTimeout);

// Runs `before` on the next dialog of class `className` (any dialog when null), then
// clicks its child button named `buttonName`.
ModalTicket clickInNextDialog(const QString &buttonName, std::function<void(QDialog *)> before = {},
                              const char *className = nullptr, int timeoutMs = defaultTimeout);

// In the next calendar: sets the year box, chooses the month in the month box, taps the
// day's cell and presses OK.
ModalTicket pickDateInNextCalendar(const QDate &date, int timeoutMs = defaultTimeout);
// In the next calendar: presses Cancel.
ModalTicket cancelNextCalendar(int timeoutMs = defaultTimeout);

// In the next file dialog: taps the entries of `path` ("sub/trip.wfn": a directory, then a
// file) in the list one after the other, then presses OK.
ModalTicket chooseFileInNextFileDialog(const QString &path, int timeoutMs = defaultTimeout);
// In the next file dialog: types `dir` into the directory box first when it is not empty,
// then types `name` into the name line and presses OK.
ModalTicket typeNameInNextFileDialog(const QString &name, const QString &dir = QString(),
                                     int timeoutMs = defaultTimeout);
// In the next file dialog: presses Cancel.
ModalTicket cancelNextFileDialog(int timeoutMs = defaultTimeout);

// Drops every helper still waiting, so that none outlives the test that armed it.
void cancelPending();

// Taps an item of a list view or a cell of a table the way a finger does: scrolls it into
// view and clicks the middle of it. False when it can't be reached.
bool tapItem(QTreeWidget *view, QTreeWidgetItem *item);
// The same for top-level row `row` of any list, in the middle of `column`.
bool tapRow(QAbstractItemView *view, int row, int column = 0);
// Makes top-level row `row` current and selected, as a program does (no click); false when
// the list has no such row.
bool selectRow(QAbstractItemView *view, int row);
// The same, in the middle of one column of the row (a tick box in column 0, say).
bool tapItem(QTreeWidget *view, QTreeWidgetItem *item, int column);
bool tapCell(QTableWidget *table, int row, int column);

} // namespace ModalHelper
