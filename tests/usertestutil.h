#pragma once

// Steps that tests take in the user list and the user editor, and a crew of three
// travellers entered through the window.

#include "modalhelper.h"
#include "widgetreaders.h"

#include "dialogs/scqtwidgetutil.h"
#include "editors/usercashedit.h"
#include "editors/useredit.h"
#include "editors/userlistedit.h"

#include <QDate>
#include <QStringList>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

#include <functional>

// Types `text` into the row `label` of group `group` of the user editor.
inline void typeInto(userEdit *ed, const QString &group, const QString &label, const QString &text,
                     ModalOutcome &out)
{
    QTreeWidgetItem *row = ScQtWidgetUtil::findTreeItem(ed->ListView, group, label, 0);
    if (!row) {
        out.error += QStringLiteral("no row %1; ").arg(label);
        return;
    }
    row->parent()->setExpanded(true);
    if (!ModalHelper::tapItem(ed->ListView, row))
        out.error += QStringLiteral("row %1 not tapped; ").arg(label);
    ed->ClearButton->click();
    QTest::keyClicks(ed->LineEdit, text);
}

// In the next user editor: runs `fill`, then presses the button `button`.
inline ModalTicket inNextUserEditor(const QString &button,
                                    std::function<void(userEdit *, ModalOutcome &)> fill = {})
{
    return ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<userEdit *>(w) != nullptr; },
        [button, fill](QWidget *w, ModalOutcome &out) {
            auto *ed = qobject_cast<userEdit *>(w);
            out.title = ed->windowTitle();
            out.objectName = ed->objectName();
            if (fill)
                fill(ed, out);
            if (auto *b = ed->findChild<QToolButton *>(button))
                b->click();
            else
                out.error += QStringLiteral("no button %1; ").arg(button);
        });
}

// In the next cash dialog: types `amount` and presses OK.
inline ModalTicket bookInNextCashDialog(const QString &amount)
{
    return ModalHelper::clickInNextDialog(
        QStringLiteral("OkButton"),
        [amount](QDialog *d) {
            auto *cash = qobject_cast<userCashEdit *>(d);
            QTest::keyClicks(cash->LineEdit, amount);
        },
        "userCashEdit");
}

struct CrewMember
{
    const char *shortName;
    const char *firstName;
    const char *name;
    const char *deposit; // as typed
    const char *stored;  // as the file holds it
};

inline const CrewMember crew[] = {{"AB", "Anna", "Berg", "40", "40.0000"},
                                  {"CD", "Carl", "Dorn", "25.5", "25.5000"},
                                  {"EF", "Eva", "Fell", "7", "7.0000"}};

// In the next user list: appends the crew through the user editor (joined 01.06.2002), books
// a deposit for each (02.06.2002) and closes the list.
inline ModalTicket enterCrewInNextUserList()
{
    return ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<userListEdit *>(w) != nullptr; },
        [](QWidget *w, ModalOutcome &out) {
            auto *l = qobject_cast<userListEdit *>(w);
            for (const CrewMember &c : crew) {
                ModalTicket ed = inNextUserEditor("OkButton", [&c](userEdit *e, ModalOutcome &o) {
                    typeInto(e, "common", "date", "01.06.2002", o);
                    typeInto(e, "common", "short", c.shortName, o);
                    typeInto(e, "common", "first", c.firstName, o);
                    typeInto(e, "common", "name", c.name, o);
                });
                l->AppendButton->click();
                if (!ed->handled || !ed->error.isEmpty())
                    out.error += QStringLiteral("editor: ") + ed->error;
            }
            for (const CrewMember &c : crew) {
                const QString shortName = QString::fromLatin1(c.shortName);
                QTreeWidgetItem *row = WidgetReaders::topLevelItem(l->ListView, shortName);
                if (!ModalHelper::tapItem(l->ListView, row))
                    out.error += QStringLiteral("row %1 not tapped; ").arg(shortName);
                ModalTicket cal = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 2));
                ModalTicket cash = bookInNextCashDialog(QString::fromLatin1(c.deposit));
                l->EinzahlButton->click();
                if (!cal->handled || !cash->handled || !cash->error.isEmpty())
                    out.error += QStringLiteral("deposit %1: %2; ").arg(shortName, cash->error);
            }
            l->CloseButton->click();
        });
}

// The crew's user and account sections as the journey file holds them, from "[USER_0]" on.
inline QStringList crewSections()
{
    QStringList expected;
    int i = 0;
    for (const CrewMember &c : crew) {
        expected << QStringLiteral("[USER_%1]").arg(i++) << "DATE=01.06.2002;"
                 << QStringLiteral("SHORT=%1;").arg(QLatin1String(c.shortName))
                 << QStringLiteral("NAME=%1;").arg(QLatin1String(c.name))
                 << QStringLiteral("FIRST NAME=%1;").arg(QLatin1String(c.firstName)) << "STREET=;"
                 << "PCODE=;"
                 << "TOWN=;"
                 << "TEL=;"
                 << "FAX=;"
                 << "EMAIL=;"
                 << "WWW=;"
                 << "BANK=;"
                 << "BLZ=;"
                 << "ACOUNT=;" << QStringLiteral("VALUE=%1;").arg(QLatin1String(c.stored))
                 << "COUNT=1;"
                 << "" << QStringLiteral("[%1_0]").arg(QLatin1String(c.shortName))
                 << "DATE=02.06.2002;"
                 << "TYPE=deposit;"
                 << "MAGIC=-2;"
                 << "PERCENTAGE=100.00;"
                 << QStringLiteral("CHANGE=%1;").arg(QLatin1String(c.stored)) << ""
                 << "";
    }
    return expected;
}
