#pragma once

// Checks a form as designed from tables, so that a new form adds rows, not code.
//
// Widgets: one row a widget, in any order. A field left out (null) is not checked; ""
// checks that the widget shows nothing there.
//
//     static const FormCheck::WidgetRow widgets[] = {
//         // object name, class, text, tool tip, what's-this text, picture
//         {"CostsDlg", "CostsDlg", "Costs"},                    // the form: its caption
//         {"OkButton", "QToolButton", "", "OKButton", "confirms the changes", ":/pixmaps/ok.xpm"},
//         {"ListView", "QTreeWidget", "item|content", "", ""},  // a list: its column heads
//     };
//     CostsDlg form;
//     FormCheck::checkWidgets(&form, widgets);
//
// Stubs: one row for every slot that the form class itself declares, in the declared order,
// with the warning that the stub gives. Each slot is invoked with empty arguments (0, false,
// null, "") and must give exactly that warning; a slot without a row, or a row without a
// slot, fails the check.
//
//     static const FormCheck::StubRow stubs[] = {
//         {"slotUserPay()", "CostsDlg::slotUserPay(): Not implemented yet!"},
//         {"slotComboChanged(QString)",
//          "CostsDlg::slotComboChanged( const QString & ): Not implemented yet!"},
//     };
//     FormCheck::checkStubs(&form, CostsDlg::staticMetaObject, stubs);
//
// Layouts: the outline of a form's layouts as lines of text, one a layout, widget or
// spacer, nested items indented by two blanks, compared in one QCOMPARE:
//
//     QCOMPARE(FormCheck::layoutOutline(form.layout()),
//              (QStringList{"QVBoxLayout margins 11 spacing 6",
//                           "  QHBoxLayout margins 0 spacing 6",
//                           "    OkButton",
//                           "    spacer 20x20 Expanding",
//                           "  ListView"}));
//
// A spacer names its size hint and its policy in the direction of its layout.
//
// Both table checks report the first row that does not hold, by object name or slot, and stop there:
// call them last in a test, or look at QTest::currentTestFailed() after them.
//
// The stub warnings are expected with QTest::ignoreMessage, which Qt lets win over
// QTest::failOnWarning: the check passes in a test whose init() fails on stub warnings.

#include <QString>
#include <QStringList>

#include <cstddef>

class QIcon;
class QLayout;
class QObject;
class QPixmap;
class QWidget;
struct QMetaObject;

namespace FormCheck {

struct WidgetRow
{
    const char *objectName;
    const char *className; // exactly as the widget's meta-object names it
    // What the widget shows as its text: the caption of the form itself, the text of a
    // button, label, line edit or spin box, the tab's text of a tab page, the title of a
    // group box; the column heads of a list or table and the entries of a combo box, each
    // joined by "|".
    const char *text = nullptr;
    const char *toolTip = nullptr;
    const char *whatsThis = nullptr;
    // The resource of the picture that a button or label shows, compared pixel by pixel
    // at the picture's size.
    const char *picture = nullptr;
};

struct StubRow
{
    const char *slot;    // the signature, as in "slotComboChanged(int)"
    const char *warning; // the whole text the stub gives
};

// The text of `widget` in the sense of WidgetRow::text; null for a widget that has none.
QString shownText(const QWidget *widget);

// True when `icon` shows `expected`, pixel by pixel at the picture's size.
bool showsPicture(const QIcon &icon, const QPixmap &expected);

// The direct child widgets of a form that have an object name, in creation order, each as
// "Name:Class". Dialogs that a logic class builds as its children are left out.
QStringList childWidgets(const QWidget *form);

QStringList layoutOutline(const QLayout *layout);

void checkWidgets(const QWidget *form, const WidgetRow *rows, std::size_t count);

template <std::size_t N>
void checkWidgets(const QWidget *form, const WidgetRow (&rows)[N])
{
    checkWidgets(form, rows, N);
}

void checkStubs(QObject *form, const QMetaObject &formClass, const StubRow *rows,
                std::size_t count);

template <std::size_t N>
void checkStubs(QObject *form, const QMetaObject &formClass, const StubRow (&rows)[N])
{
    checkStubs(form, formClass, rows, N);
}

} // namespace FormCheck
