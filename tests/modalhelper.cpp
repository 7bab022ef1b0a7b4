#include "modalhelper.h"

#include "calendar/calendar.h"
#include "forms/calenderdlg.h"
#include "forms/scqtfiledlg.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QPointer>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTableWidget>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

namespace ModalHelper {

namespace {

constexpr int pollInterval = 5;

// Helpers armed before the last cancelPending() stop at their next poll.
int generation = 0;

// Closes a modal widget that nobody answered, so that its exec() returns.
void closeModal(QWidget *widget)
{
    if (auto *box = qobject_cast<QMessageBox *>(widget)) {
        if (QAbstractButton *escape = box->escapeButton()) {
            escape->click();
            return;
        }
    }
    if (auto *dialog = qobject_cast<QDialog *>(widget))
        dialog->reject();
    else
        widget->close();
}

struct Watch
{
    std::function<bool(QWidget *)> matches;
    std::function<void(QWidget *, ModalOutcome &)> action;
    ModalTicket outcome;
    QPointer<QWidget> excluded; // active when armed: not "the next" one while it stays
    QElapsedTimer clock;
    int timeoutMs = defaultTimeout;
    int generation = 0;
};

void poll(const std::shared_ptr<Watch> &watch)
{
    if (watch->generation != generation)
        return;
    QWidget *active = QApplication::activeModalWidget();
    if (watch->excluded && active != watch->excluded)
        watch->excluded = nullptr;
    if (active && active != watch->excluded && active->isVisible() && watch->matches(active)) {
        ModalOutcome &out = *watch->outcome;
        out.className = QString::fromLatin1(active->metaObject()->className());
        out.objectName = active->objectName();
        out.title = active->windowTitle();
        if (auto *box = qobject_cast<QMessageBox *>(active)) {
            out.text = box->text();
            out.buttons = box->standardButtons();
            out.icon = box->icon();
        }
        out.handled = true;
        watch->action(active, out);
        return;
    }
    if (watch->clock.elapsed() > watch->timeoutMs) {
        ModalOutcome &out = *watch->outcome;
        if (active && active != watch->excluded) {
            out.error = QStringLiteral("timed out; closed the modal %1 \"%2\" that did not match")
                            .arg(QString::fromLatin1(active->metaObject()->className()),
                                 active->windowTitle());
            closeModal(active);
        } else {
            out.error = QStringLiteral("timed out; no matching modal widget showed");
        }
        return;
    }
    QTimer::singleShot(pollInterval, qApp, [watch] { poll(watch); });
}

template <typename T>
T *child(QWidget *parent, const char *name, ModalOutcome &out)
{
    T *widget = parent->findChild<T *>(QString::fromLatin1(name));
    if (!widget)
        out.error += QStringLiteral("no child %1; ").arg(QString::fromLatin1(name));
    return widget;
}

void click(QWidget *dialog, const char *name, ModalOutcome &out)
{
    if (auto *button = child<QAbstractButton>(dialog, name, out))
        button->click();
    else
        closeModal(dialog);
}

} // namespace

ModalTicket onNextModal(std::function<bool(QWidget *)> matches,
                        std::function<void(QWidget *, ModalOutcome &)> action, int timeoutMs)
{
    auto watch = std::make_shared<Watch>();
    watch->matches = std::move(matches);
    watch->action = std::move(action);
    watch->outcome = std::make_shared<ModalOutcome>();
    watch->excluded = QApplication::activeModalWidget();
    watch->timeoutMs = timeoutMs;
    watch->generation = generation;
    watch->clock.start();
    QTimer::singleShot(0, qApp, [watch] { poll(watch); });
    return watch->outcome;
}

ModalTicket answerNextMessageBox(QMessageBox::StandardButton button, int timeoutMs)
{
    return onNextModal([](QWidget *w) { return qobject_cast<QMessageBox *>(w) != nullptr; },
                       [button](QWidget *w, ModalOutcome &out) {
                           auto *box = static_cast<QMessageBox *>(w);
                           if (QAbstractButton *b = box->button(button)) {
                               b->click();
                           } else {
                               out.error = QStringLiteral("the message box has no such button");
                               closeModal(box);
                           }
                       },
                       timeoutMs);
}

static std::function<bool(QWidget *)> dialogOfClass(const char *className)
{
    return [className](QWidget *w) {
        return qobject_cast<QDialog *>(w) && (!className || w->inherits(className));
    };
}

namespace {
// Runs `before` on the next dialog of the class, then closes it through `close`.
ModalTicket closeNextDialog(std::function<void(QDialog *)> before, const char *className,
                            int timeoutMs, void (QDialog::*close)())
{
    return onNextModal(
        dialogOfClass(className),
        [before, close](QWidget *w, ModalOutcome &) {
            QPointer<QDialog> dialog = static_cast<QDialog *>(w);
            if (before)
                before(dialog);
            if (dialog && dialog->isVisible())
                (dialog->*close)();
        },
        timeoutMs);
}
} // namespace

ModalTicket acceptNextDialog(std::function<void(QDialog *)> before, const char *className,
                             int timeoutMs)
{
    return closeNextDialog(std::move(before), className, timeoutMs, &QDialog::accept);
}

ModalTicket rejectNextDialog(std::function<void(QDialog *)> before, const char *className,
                             int timeoutMs)
{
    return closeNextDialog(std::move(before), className, timeoutMs, &QDialog::reject);
}

ModalTicket clickInNextDialog(const QString &buttonName, std::function<void(QDialog *)> before,
                              const char *className, int timeoutMs)
{
    return onNextModal(
        dialogOfClass(className),
        [before, buttonName](QWidget *w, ModalOutcome &out) {
            QPointer<QDialog> dialog = static_cast<QDialog *>(w);
            if (before)
                before(dialog);
            if (dialog && dialog->isVisible())
                click(dialog, buttonName.toLatin1().constData(), out);
        },
        timeoutMs);
}

bool tapItem(QTreeWidget *view, QTreeWidgetItem *item)
{
    if (!view || !item)
        return false;
    view->scrollToItem(item);
    const QRect rect = view->visualItemRect(item);
    if (!rect.isValid() || !view->viewport()->rect().contains(rect.center()))
        return false;
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
    return true;
}

bool tapItem(QTreeWidget *view, QTreeWidgetItem *item, int column)
{
    if (!view || !item || column < 0 || column >= view->columnCount())
        return false;
    view->scrollToItem(item);
    const QModelIndex index = view->indexFromItem(item, column);
    view->scrollTo(index);
    const QRect rect = view->visualRect(index);
    if (!rect.isValid() || !view->viewport()->rect().contains(rect.center()))
        return false;
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
    return true;
}

bool tapRow(QAbstractItemView *view, int row, int column)
{
    if (!view)
        return false;
    const QModelIndex index = view->model()->index(row, column);
    if (!index.isValid())
        return false;
    view->scrollTo(index);
    const QRect rect = view->visualRect(index);
    if (!rect.isValid() || !view->viewport()->rect().contains(rect.center()))
        return false;
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
    return true;
}

bool selectRow(QAbstractItemView *view, int row)
{
    const QModelIndex index = view->model()->index(row, 0);
    if (!index.isValid())
        return false;
    view->selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    return true;
}

bool tapCell(QTableWidget *table, int row, int column)
{
    return tapRow(table, row, column);
}

ModalTicket pickDateInNextCalendar(const QDate &date, int timeoutMs)
{
    return onNextModal(
        [](QWidget *w) { return qobject_cast<CalenderDlg *>(w) != nullptr; },
        [date](QWidget *w, ModalOutcome &out) {
            auto *cal = static_cast<CalenderDlg *>(w);
            cal->YearSpinBox->setValue(date.year());
            if (cal->YearSpinBox->value() != date.year())
                out.error += QStringLiteral("the year box can't show %1; ").arg(date.year());
            const int monthIndex = date.month() - 1;
            if (monthIndex < cal->MonthComboBox->count()) {
                cal->MonthComboBox->setCurrentIndex(monthIndex);
                emit cal->MonthComboBox->activated(monthIndex);
            } else {
                out.error += QStringLiteral("the month box has no entry %1; ").arg(date.month());
            }
            // The shown month's own cell for the day: the grid is the one the dialog fills.
            const QList<CalendarDay> days = Calendar::daysOfMonth(date.year(), date.month(), false);
            int cell = -1;
            for (int i = 0; i < days.size(); ++i)
                if (days[i].kind == 1 && days[i].number == date.day())
                    cell = i;
            if (cell < 0 || !tapCell(cal->Table, cell / 7, cell % 7))
                out.error += QStringLiteral("can't tap the cell of day %1; ").arg(date.day());
            click(cal, "OkButton", out);
        },
        timeoutMs);
}

ModalTicket cancelNextCalendar(int timeoutMs)
{
    return onNextModal([](QWidget *w) { return qobject_cast<CalenderDlg *>(w) != nullptr; },
                       [](QWidget *w, ModalOutcome &out) { click(w, "CancelButton", out); },
                       timeoutMs);
}

static bool isFileDialog(QWidget *w)
{
    return qobject_cast<ScQtFileDlg *>(w) != nullptr;
}

ModalTicket chooseFileInNextFileDialog(const QString &path, int timeoutMs)
{
    return onNextModal(
        isFileDialog,
        [path](QWidget *w, ModalOutcome &out) {
            QPointer<ScQtFileDlg> dlg = static_cast<ScQtFileDlg *>(w);
            const QStringList parts = path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
            for (int i = 0; i < parts.size() && dlg; ++i) {
                // Entering a directory refills the list from a short timer, which clears
                // the list first.
                QSignalSpy refilled(dlg->ListView->model(), &QAbstractItemModel::modelReset);
                // A list just refilled may not be laid out yet: its rows can't be tapped
                // until it is.
                const bool tapped = QTest::qWaitFor([&] {
                    if (!dlg)
                        return true;
                    const QList<QTreeWidgetItem *> found = dlg->ListView->findItems(
                        parts[i], Qt::MatchExactly | Qt::MatchCaseSensitive, 0);
                    return !found.isEmpty() && tapItem(dlg->ListView, found.first());
                });
                if (!dlg || !tapped) {
                    out.error += QStringLiteral("can't tap \"%1\" in the list; ").arg(parts[i]);
                    break;
                }
                if (i + 1 < parts.size()
                    && !QTest::qWaitFor([&] { return !dlg || refilled.count() > 0; })) {
                    out.error += QStringLiteral("\"%1\" was never entered; ").arg(parts[i]);
                    break;
                }
            }
            if (dlg)
                click(dlg, "OkButton", out);
        },
        timeoutMs);
}

ModalTicket typeNameInNextFileDialog(const QString &name, const QString &dir, int timeoutMs)
{
    return onNextModal(
        isFileDialog,
        [name, dir](QWidget *w, ModalOutcome &out) {
            auto *dlg = static_cast<ScQtFileDlg *>(w);
            if (!dir.isEmpty()) {
                dlg->DirComboBox->lineEdit()->setText(dir);
                QTest::keyClick(dlg->DirComboBox->lineEdit(), Qt::Key_Return);
            }
            dlg->FNameLineEdit->clear();
            QTest::keyClicks(dlg->FNameLineEdit, name);
            click(dlg, "OkButton", out);
        },
        timeoutMs);
}

ModalTicket cancelNextFileDialog(int timeoutMs)
{
    return onNextModal(
        isFileDialog, [](QWidget *w, ModalOutcome &out) { click(w, "CancelButton", out); },
        timeoutMs);
}

void cancelPending()
{
    ++generation;
}

} // namespace ModalHelper
