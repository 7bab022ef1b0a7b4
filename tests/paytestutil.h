#pragma once

// What the tests of the share dialog and of the deposit and account dialogs check alike.

#include "formcheck.h"
#include "modalhelper.h"

#include <QApplication>
#include <QEvent>
#include <QFont>
#include <QLabel>
#include <QList>
#include <QMessageBox>
#include <QString>
#include <QTest>

#include <cstddef>

namespace PayTest {

inline const char *const okWhatsThis =
    "confirms the changes.\nIf pressed, all changed will be stored.";
inline const char *const cancelWhatsThis =
    "all changes will be lost,\nif this button is pressed.\n\n"
    "The user is asked to confirm\nthe cancellation.";
inline const char *const saveQuestion =
    "You have modified the data!\nDo you want to save the changes ?";

// The question of Cancel and of closing: answered, with its caption, text, buttons and icon.
inline void checkSaveQuestion(const ModalTicket &box)
{
    QVERIFY2(box->handled && box->error.isEmpty(), qPrintable(box->error));
    QCOMPARE(box->title, QString("Cancel"));
    QCOMPARE(box->text, QString(saveQuestion));
    QCOMPARE(box->buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    QCOMPARE(box->icon, QMessageBox::Information);
}

// Closes the next message box with Escape: a box closed without a choice.
inline ModalTicket escapeNextMessageBox()
{
    return ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<QMessageBox *>(w) != nullptr; },
        [](QWidget *box, ModalOutcome &outcome) {
            QTest::keyClick(box, Qt::Key_Escape);
            if (box->isVisible())
                outcome.error = QStringLiteral("Escape left the box open");
        });
}

// The big labels of a form are 11 point bold. They stay so when the application font
// changes, and the form sets them so again on an ApplicationFontChange event, whatever they
// were set to in between. (Qt 6 keeps a widget's own font size through QApplication::setFont
// and sends the event only on a change of the platform's fonts, so the test sends it.)
inline void checkLabelsStayBigOnAFontChange(QWidget *form, const QList<QLabel *> &labels)
{
    const QFont before = QApplication::font();
    QFont bigger = before;
    bigger.setPointSize(23);
    bigger.setBold(false);
    QApplication::setFont(bigger);
    QList<QFont> shown;
    for (QLabel *label : labels)
        shown << label->font();
    QApplication::setFont(before);
    for (const QFont &font : shown) {
        QCOMPARE(font.pointSize(), 11);
        QVERIFY(font.bold());
    }

    for (QLabel *label : labels) {
        QFont small = label->font();
        small.setPointSize(7);
        small.setBold(false);
        label->setFont(small);
    }
    QEvent change(QEvent::ApplicationFontChange);
    QApplication::sendEvent(form, &change);
    for (QLabel *label : labels) {
        QCOMPARE(label->font().pointSize(), 11);
        QVERIFY(label->font().bold());
    }
}

// The rows of a form's table after the form's own, with the logic class's object in its
// place: the logic class keeps every widget of its form as designed.
template <std::size_t N>
void checkEditorWidgets(const QWidget *editor, const FormCheck::WidgetRow (&formRows)[N],
                        const FormCheck::WidgetRow &editorRow)
{
    FormCheck::checkWidgets(editor, &editorRow, 1);
    if (!QTest::currentTestFailed())
        FormCheck::checkWidgets(editor, formRows + 1, N - 1);
}

} // namespace PayTest
