#include "coretestutil.h"
#include "editortestutil.h"
#include "shellfixture.h"
#include "widgetreaders.h"

#include "data/wayferndata.h"
#include "dialogs/calenderedit.h"
#include "dialogs/scqtfileeditdlg.h"
#include "editors/baseedit.h"
#include "editors/costsedit.h"
#include "editors/curredit.h"
#include "editors/currlistedit.h"
#include "editors/settleedit.h"
#include "editors/tipedit.h"
#include "editors/usercashedit.h"
#include "editors/useredit.h"
#include "editors/userktoedit.h"
#include "editors/userlistedit.h"
#include "editors/userpayedit.h"
#include "helpviewer/helpwindow.h"
#include "rates/synclistedit.h"
#include "shell/translationloader.h"
#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QToolButton>
#include <QTranslator>
#include <QTreeWidget>

// The window and its dialogs under a German locale (the test runs with LANG=de_DE.UTF-8),
// with the translation that the build made; and a journey edited and saved in German holds
// the same bytes as the same steps give in English.

namespace {

// Takes every translator of the application but those in `keep` out again.
void uninstallAllBut(const QList<QTranslator *> &keep)
{
    for (QTranslator *t : qApp->findChildren<QTranslator *>()) {
        if (!keep.contains(t)) {
            QCoreApplication::removeTranslator(t);
            delete t;
        }
    }
}

bool hasFile(const QStringList &files, const QString &name)
{
    for (const QString &f : files)
        if (QFileInfo(f).fileName() == name)
            return true;
    return false;
}

// The next modal widget of class `className`: `look` reads it (and may put a failure into
// the outcome), then `close` ends it.
ModalTicket inNext(const char *className, std::function<void(QWidget *, ModalOutcome &)> look,
                   std::function<void(QWidget *)> close)
{
    return ModalHelper::onNextModal([className](QWidget *w) { return w->inherits(className); },
                                    [look, close](QWidget *w, ModalOutcome &out) {
                                        out.title = w->windowTitle();
                                        look(w, out);
                                        close(w);
                                    });
}

void rejectIt(QWidget *w)
{
    qobject_cast<QDialog *>(w)->reject();
}

void select(QAbstractItemView *list, int row)
{
    ModalHelper::selectRow(list, row);
}

// Appends `what` to `out.text`, one per line: what a dialog showed, for the test to compare.
void note(ModalOutcome &out, const QString &what)
{
    out.text += what + u'\n';
}

QStringList noted(const ModalTicket &t)
{
    return t->text.split(u'\n', Qt::SkipEmptyParts);
}

} // namespace

class TestGerman : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCOMPARE(QLocale::system().name(), QStringLiteral("de_DE"));
        loaded = TranslationLoader::install(qApp, QLocale::system(),
                                            {QStringLiteral(WAYFERN_BUILD_QM_DIR)});
        QVERIFY2(hasFile(loaded, QStringLiteral("wayfern_de.qm")), qPrintable(loaded.join(u',')));
        QVERIFY2(hasFile(loaded, QStringLiteral("qtbase_de.qm")), qPrintable(loaded.join(u',')));
        germanTranslators = qApp->findChildren<QTranslator *>();
        QCOMPARE(germanTranslators.size(), 2);
    }
    void cleanup() { ModalHelper::cancelPending(); }

    void theProgramLooksBesideItselfThenInTheInstalledPlaceThenInTheCurrentDirectory()
    {
        const QStringList dirs = TranslationLoader::programDirs();
        QCOMPARE(dirs.size(), 4);
        const QString program = QCoreApplication::applicationDirPath();
        QCOMPARE(dirs.at(0), program + QStringLiteral("/translations"));
        // The installed place as seen from the installed program (found wherever the tree
        // was installed), then as configured.
        const QString fromProgram = QDir(program).relativeFilePath(dirs.at(1));
        QVERIFY2(fromProgram.startsWith(QStringLiteral("../"))
                     && fromProgram.endsWith(QStringLiteral("/wayfern/translations")),
                 qPrintable(fromProgram));
        QVERIFY2(dirs.at(2).endsWith(QStringLiteral("/wayfern/translations")),
                 qPrintable(dirs.at(2)));
        QVERIFY(QDir::isAbsolutePath(dirs.at(2)));
        QCOMPARE(dirs.at(3), QStringLiteral("."));
    }

    void theCurrentDirectoryServesTheNewAndTheOldName()
    {
        const QString built = QStringLiteral(WAYFERN_BUILD_QM_DIR "/wayfern_de.qm");
        const QString before = QDir::currentPath();
        QTemporaryDir here;
        QVERIFY(QDir::setCurrent(here.path()));
        const QLocale german(QLocale::German, QLocale::Germany);

        QVERIFY(QFile::copy(built, QStringLiteral("wayfern.de_DE")));
        QStringList files = TranslationLoader::install(qApp, german, {here.filePath("none")});
        uninstallAllBut(germanTranslators);
        QVERIFY2(hasFile(files, QStringLiteral("wayfern.de_DE")), qPrintable(files.join(u',')));

        QVERIFY(QFile::copy(built, QStringLiteral("wayfern_de.qm")));
        files = TranslationLoader::install(qApp, german, {here.filePath("none"), "."});
        uninstallAllBut(germanTranslators);
        QVERIFY2(hasFile(files, QStringLiteral("wayfern_de.qm")), qPrintable(files.join(u',')));

        // English needs no file: the texts are built in.
        files = TranslationLoader::install(qApp, QLocale(QLocale::English, QLocale::UnitedStates),
                                           {QStringLiteral(WAYFERN_BUILD_QM_DIR), "."});
        uninstallAllBut(germanTranslators);
        QVERIFY2(!hasFile(files, QStringLiteral("wayfern_de.qm")), qPrintable(files.join(u',')));
        QVERIFY(QDir::setCurrent(before));
    }

    void theHelpWindowSpeaksGerman()
    {
        HelpWindow help;
        QCOMPARE(help.windowTitle(), QStringLiteral("Wayfern-Hilfe"));
        QCOMPARE(help.closeButton->text(), QStringLiteral("Schließen"));
        help.showPage(QStringLiteral("/nonexistent/help.html"));
        QCOMPARE(help.browser->toPlainText(),
                 QStringLiteral("Die Hilfeseite /nonexistent/help.html wurde nicht gefunden."));
    }

    void theMainWindowSpeaksGerman()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        QCOMPARE(app.fileSave->text(), QStringLiteral("&Speichern"));
        QCOMPARE(app.fileSave->toolTip(), QStringLiteral("Datei speichern"));
        QCOMPARE(app.fileOpen->statusTip(), QStringLiteral("Öffnet ein vorhandenes Dokument"));
        QCOMPARE(app.settleUp->text(), QStringLiteral("Abrechnen"));
        QCOMPARE(app.report->text(), QStringLiteral("Bericht..."));
        // The keys are the same in every language.
        QCOMPARE(app.fileSave->shortcut(), QKeySequence(QStringLiteral("Ctrl+S")));
        // The window keeps no menu: its actions are on the toolbar.
        QCOMPARE(app.viewToolBar->text(), QStringLiteral("&Werkzeugleiste"));
        QCOMPARE(app.openUser->iconText(), QStringLiteral("Reisende öffnen"));
        WayfernView *view = app.view;
        QCOMPARE(view->TabWidget2->tabText(0), QStringLiteral("Ü&bersicht"));
        QCOMPARE(view->TabWidget2->tabText(1), QStringLiteral("&Kosten"));
        QCOMPARE(WidgetReaders::headerTexts(view->CostsListView).value(0), QStringLiteral("Datum"));
        QVERIFY(
            WidgetReaders::columnTexts(view->OverListView).contains(QStringLiteral("Allgemein")));
    }

    void theCostAndShareDialogsSpeakGerman()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        WayfernView *view = app.view;
        ModalTicket share;
        ModalTicket costs = inNext(
            "costsEdit",
            [&share](QWidget *w, ModalOutcome &out) {
                auto *c = qobject_cast<costsEdit *>(w);
                for (const QString &t : WidgetReaders::columnTexts(c->ListView))
                    note(out, t);
                note(out, c->LineEdit->toolTip());
                // The share button works on a selected row.
                ModalHelper::tapItem(c->ListView,
                                     WidgetReaders::topLevelItem(c->ListView, c->rowForeign));
                share = inNext(
                    "userPayEdit",
                    [](QWidget *p, ModalOutcome &o) {
                        auto *pay = qobject_cast<userPayEdit *>(p);
                        for (const QString &t : WidgetReaders::headerTexts(pay->ListView))
                            note(o, t);
                    },
                    rejectIt);
                c->UserButton->click();
            },
            rejectIt);
        view->TabWidget2->setCurrentIndex(1);
        select(view->CostsListView, 1);
        view->ChangeButton->click();
        QVERIFY2(costs->handled, qPrintable(costs->error));
        QVERIFY(noted(costs).contains(QStringLiteral("Fremdbetrag")));
        QVERIFY(noted(costs).contains(QStringLiteral("Kurs")));
        QVERIFY(noted(costs).contains(QStringLiteral("Eingabezeile")));
        QVERIFY(share);
        QVERIFY2(share->handled, qPrintable(share->error));
        QCOMPARE(noted(share), (QStringList{"Ausw.", "Reisender", "Proz.", "Wert", "Summe"}));
    }

    void theUserDialogsSpeakGerman()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        ModalTicket user, calendar, cash, account;
        ModalTicket list = inNext(
            "userListEdit",
            [&](QWidget *w, ModalOutcome &out) {
                auto *l = qobject_cast<userListEdit *>(w);
                for (const QString &t : WidgetReaders::headerTexts(l->ListView))
                    note(out, t);
                select(l->ListView, 0);
                user = inNext(
                    "userEdit",
                    [](QWidget *u, ModalOutcome &o) {
                        for (const QString &t :
                             WidgetReaders::columnTexts(qobject_cast<userEdit *>(u)->ListView))
                            note(o, t);
                    },
                    rejectIt);
                l->ChangeButton->click();

                select(l->ListView, 0);
                calendar = inNext(
                    "calenderEdit",
                    [](QWidget *c, ModalOutcome &o) {
                        auto *cal = qobject_cast<calenderEdit *>(c);
                        for (const QString &t : WidgetReaders::comboTexts(cal->MonthComboBox))
                            note(o, t);
                        note(o, cal->OkButton->toolTip());
                        cal->setDate(QStringLiteral("02.06.2002"));
                    },
                    [](QWidget *c) { qobject_cast<calenderEdit *>(c)->slotOK(); });
                cash = inNext(
                    "userCashEdit", [](QWidget *, ModalOutcome &) {}, rejectIt);
                l->EinzahlButton->click();

                select(l->ListView, 0);
                account = inNext(
                    "userKtoEdit",
                    [](QWidget *k, ModalOutcome &o) {
                        for (const QString &t :
                             WidgetReaders::headerTexts(qobject_cast<userKtoEdit *>(k)->ListView))
                            note(o, t);
                    },
                    [](QWidget *k) { qobject_cast<QDialog *>(k)->accept(); });
                l->KtoButton->click();
                l->CloseButton->click();
            },
            [](QWidget *) {});
        app.openUser->trigger();
        QVERIFY2(list->handled, qPrintable(list->error));
        QCOMPARE(noted(list).value(0), QStringLiteral("Kürzel"));
        QVERIFY(noted(list).contains(QStringLiteral("Vorn.")));
        QVERIFY(user && user->handled);
        QCOMPARE(noted(user).value(0), QStringLiteral("Allgemein"));
        QVERIFY(noted(user).contains(QStringLiteral("Telefon")));
        QVERIFY(calendar && calendar->handled);
        // Month names come from the locale, the rest from the translation.
        QVERIFY2(noted(calendar).contains(QLocale().monthName(3, QLocale::ShortFormat)),
                 qPrintable(calendar->text));
        QVERIFY(noted(calendar).contains(QStringLiteral("OK")));
        QVERIFY(cash && cash->handled);
        QVERIFY2(cash->title.startsWith(QStringLiteral("Einzahlung-")), qPrintable(cash->title));
        QVERIFY(account && account->handled);
        QVERIFY2(account->title.startsWith(QStringLiteral("Konto : ")), qPrintable(account->title));
        QVERIFY(noted(account).contains(QStringLiteral("Datum")));
    }

    void theBaseAndTipDialogsSpeakGerman()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        auto rows = [](QWidget *w, ModalOutcome &o) {
            for (const QString &t :
                 WidgetReaders::treeRows(w->findChild<QTreeWidget *>("ListView")))
                note(o, t);
        };
        ModalTicket base = inNext("baseEdit", rows, rejectIt);
        app.openBase->trigger();
        QVERIFY2(base->handled, qPrintable(base->error));
        QVERIFY2(noted(base).contains(QStringLiteral("Konten führen|ja")), qPrintable(base->text));
        QVERIFY(noted(base).contains(QStringLiteral("Reisetitel|Lakes and Passes")));

        ModalTicket tip = inNext("tipEdit", rows, rejectIt);
        app.view->TabWidget2->setCurrentIndex(2);
        select(app.view->TipListView, 0);
        app.view->TChangeButton->click();
        QVERIFY2(tip->handled, qPrintable(tip->error));
        QVERIFY2(noted(tip).contains(QStringLiteral("Allgemein|")), qPrintable(tip->text));
        QVERIFY2(noted(tip).contains(QStringLiteral("  Tippart|Hotel")), qPrintable(tip->text));
    }

    void theCurrencyDialogsSpeakGerman()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        ModalTicket curr, catalogue;
        ModalTicket list = inNext(
            "currListEdit",
            [&](QWidget *w, ModalOutcome &out) {
                auto *l = qobject_cast<currListEdit *>(w);
                note(out, l->BaseCTextLabel->text());
                select(l->CurrListView, 1);
                curr = inNext(
                    "currEdit",
                    [](QWidget *c, ModalOutcome &o) {
                        auto *ed = qobject_cast<currEdit *>(c);
                        for (const QString &t : WidgetReaders::columnTexts(ed->ListView))
                            note(o, t);
                        // The types are stored words: they stay as the file holds them.
                        for (const QString &t : WidgetReaders::comboTexts(ed->ComboBox))
                            note(o, t);
                    },
                    rejectIt);
                l->ChangeButton->click();
                catalogue = inNext(
                    "syncListEdit",
                    [](QWidget *s, ModalOutcome &o) {
                        auto *sync = qobject_cast<syncListEdit *>(s);
                        for (const QString &t : WidgetReaders::headerTexts(sync->ListView))
                            note(o, t);
                    },
                    [](QWidget *s) { qobject_cast<syncListEdit *>(s)->QDialog::reject(); });
                l->SyncListButton->click();
                l->CloseButton->click();
            },
            [](QWidget *) {});
        app.openCurr->trigger();
        QVERIFY2(list->handled, qPrintable(list->error));
        QCOMPARE(noted(list).value(0), QStringLiteral("Basiswährung : EUR"));
        QVERIFY(curr && curr->handled);
        QCOMPARE(noted(curr),
                 (QStringList{"Voller Name", "Faktor", "Kürzel", "Art", "fix", "floating"}));
        QVERIFY(catalogue && catalogue->handled);
        QVERIFY2(noted(catalogue).contains(QStringLiteral("Kürzel")), qPrintable(catalogue->text));
    }

    void settlingUpSpeaksGerman()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        ModalTicket settle = inNext(
            "settleEdit",
            [](QWidget *w, ModalOutcome &out) {
                auto *s = qobject_cast<settleEdit *>(w);
                for (const QString &t : WidgetReaders::headerTexts(s->BalanceListView))
                    note(out, t);
                for (const QString &t : WidgetReaders::columnTexts(s->BalanceListView))
                    note(out, t);
                for (const QString &t : WidgetReaders::columnTexts(s->PlanListView))
                    note(out, t);
                note(out, s->BookButton->text() + s->BookButton->toolTip());
            },
            [](QWidget *w) { qobject_cast<settleEdit *>(w)->CloseButton->click(); });
        app.settleUp->trigger();
        QVERIFY2(settle->handled, qPrintable(settle->error));
        const QStringList seen = noted(settle);
        QCOMPARE(seen.mid(0, 2), (QStringList{"Reisender", "Saldo"}));
        QVERIFY2(seen.contains(QStringLiteral("Kasse")), qPrintable(settle->text));
        bool plan = false;
        for (const QString &line : seen)
            plan = plan || line.contains(QStringLiteral(" zahlt "))
                || line == QStringLiteral("Niemand schuldet jemandem etwas.");
        QVERIFY2(plan, qPrintable(settle->text));
    }

    void theFileDialogAndTheSaveQuestionSpeakGerman()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        ModalTicket files = inNext(
            "ScQtFileEditDlg",
            [](QWidget *w, ModalOutcome &out) {
                auto *list = w->findChild<QTreeWidget *>(QStringLiteral("ListView"));
                for (const QString &t : WidgetReaders::headerTexts(list))
                    note(out, t);
                for (const QString &t : WidgetReaders::columnTexts(list, 2))
                    note(out, t);
            },
            [](QWidget *w) {
                w->findChild<QAbstractButton *>(QStringLiteral("CancelButton"))->click();
            });
        app.fileOpen->trigger();
        QVERIFY2(files->handled, qPrintable(files->error));
        QCOMPARE(noted(files).mid(0, 3), (QStringList{"Name", "Größe", "Typ"}));
        QVERIFY2(noted(files).contains(QStringLiteral("Datei")), qPrintable(files->text));

        app.doc->setModified(true);
        ModalTicket question = inNext(
            "QMessageBox",
            [](QWidget *w, ModalOutcome &out) {
                auto *box = qobject_cast<QMessageBox *>(w);
                out.text.clear();
                note(out, box->text());
                for (auto b : {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel})
                    note(out, box->button(b)->text());
            },
            [](QWidget *w) { qobject_cast<QMessageBox *>(w)->button(QMessageBox::No)->click(); });
        app.fileNew->trigger();
        QVERIFY2(question->handled, qPrintable(question->error));
        QCOMPARE(question->title, QStringLiteral("Neue Datei ... "));
        QCOMPARE(question->text,
                 QStringLiteral("Sie haben die Daten geändert!\nWollen Sie die Änderungen "
                                "speichern?\n&Ja\n&Nein\nAbbrechen\n"));
        QCOMPARE(app.windowTitle(), QStringLiteral("neue Datei"));
        QVERIFY(app.doc->isModified());
    }

    void theDeleteQuestionSpeaksGerman()
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        WayfernView *view = app.view;
        view->TabWidget2->setCurrentIndex(1);
        select(view->CostsListView, 0);
        ModalTicket question = ModalHelper::answerNextMessageBox(QMessageBox::No);
        view->DeleteButton->click();
        QVERIFY2(question->handled, qPrintable(question->error));
        QCOMPARE(question->title, QStringLiteral("Eintrag löschen"));
        QVERIFY2(question->text.startsWith(QStringLiteral("Eintrag löschen\n")),
                 qPrintable(question->text));
        QVERIFY2(question->text.endsWith(QStringLiteral("\n\nmit Ja bestätigen!")),
                 qPrintable(question->text));
        QCOMPARE(app.doc->costs.count(), 5);
    }

    // Currency types, deposits, pay-offs and the settlement's bookings are stored words:
    // edited through the German dialogs they are written as in English.
    void savingInGermanWritesTheSameBytesAsInEnglish()
    {
        QByteArray german;
        editAndSave(&german);
        QVERIFY(!QTest::currentTestFailed());
        QVERIFY(german.contains("TYPE=fix;"));
        QVERIFY(german.contains("TYPE=deposit;\nMAGIC=-2;\nPERCENTAGE=100.00;\nCHANGE=12.5000;"));
        QVERIFY(german.contains("TYPE=pay off;"));

        uninstallAllBut({});
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        QCOMPARE(QCoreApplication::translate("WayfernApp", "&Save"), QStringLiteral("&Save"));
        QByteArray english;
        editAndSave(&english);
        QLocale::setDefault(QLocale::system());
        loaded = TranslationLoader::install(qApp, QLocale::system(),
                                            {QStringLiteral(WAYFERN_BUILD_QM_DIR)});
        germanTranslators = qApp->findChildren<QTranslator *>();
        QVERIFY(!english.isEmpty());
        QCOMPARE(undatedLines(german), undatedLines(english));
    }

private:
    // On the sample journey: the second currency becomes "fix", the first traveller
    // deposits 12.5, the settlement plan is booked, and the journey is saved: *bytes gets
    // the file.
    void editAndSave(QByteArray *bytes)
    {
        ShellFixture fx({QStringLiteral("sample.wfn")});
        fx.writeLast(QStringLiteral("sample.wfn"));
        WayfernApp app;
        ModalTicket currency = inNext(
            "currListEdit",
            [](QWidget *w, ModalOutcome &out) {
                auto *l = qobject_cast<currListEdit *>(w);
                select(l->CurrListView, 1);
                ModalTicket ed = ModalHelper::clickInNextDialog(
                    QStringLiteral("OkButton"),
                    [](QDialog *d) {
                        auto *c = qobject_cast<currEdit *>(d);
                        QTreeWidgetItem *type =
                            WidgetReaders::topLevelItem(c->ListView, c->rowType);
                        ModalHelper::tapItem(c->ListView, type);
                        chooseInCombo(c->ComboBox, QStringLiteral("fix"));
                    },
                    "currEdit");
                l->ChangeButton->click();
                if (!ed->handled)
                    out.error += QStringLiteral("currency editor: ") + ed->error;
                ModalTicket keep = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
                l->CloseButton->click();
            },
            [](QWidget *) {});
        app.openCurr->trigger();
        QVERIFY2(currency->handled && currency->error.isEmpty(), qPrintable(currency->error));

        ModalTicket users = inNext(
            "userListEdit",
            [](QWidget *w, ModalOutcome &out) {
                auto *l = qobject_cast<userListEdit *>(w);
                select(l->ListView, 0);
                ModalTicket cal = ModalHelper::pickDateInNextCalendar(QDate(2002, 6, 3));
                ModalTicket cash = ModalHelper::clickInNextDialog(
                    QStringLiteral("OkButton"),
                    [](QDialog *d) {
                        QTest::keyClicks(qobject_cast<userCashEdit *>(d)->LineEdit,
                                         QStringLiteral("12.5"));
                    },
                    "userCashEdit");
                l->EinzahlButton->click();
                if (!cal->handled || !cash->handled)
                    out.error += QStringLiteral("deposit: ") + cal->error + cash->error;
                l->CloseButton->click();
            },
            [](QWidget *) {});
        app.openUser->trigger();
        QVERIFY2(users->handled && users->error.isEmpty(), qPrintable(users->error));

        ModalTicket settle = inNext(
            "settleEdit",
            [](QWidget *w, ModalOutcome &out) {
                auto *s = qobject_cast<settleEdit *>(w);
                ModalTicket sure = ModalHelper::answerNextMessageBox(QMessageBox::Yes);
                s->BookButton->click();
                if (!sure->handled)
                    out.error += QStringLiteral("booking: ") + sure->error;
            },
            [](QWidget *w) { qobject_cast<settleEdit *>(w)->CloseButton->click(); });
        app.settleUp->trigger();
        QVERIFY2(settle->handled && settle->error.isEmpty(), qPrintable(settle->error));

        app.fileSave->trigger();
        QVERIFY(!app.doc->isModified());
        // The file's last line names where it was written: a directory of this run.
        *bytes = readBytes(fx.dataFile(QStringLiteral("sample.wfn")))
                     .replace(fx.dataDir().toLocal8Bit(), "DATA");
    }

    QStringList loaded;
    QList<QTranslator *> germanTranslators; // the translators of the whole test
};

QTEST_MAIN(TestGerman)
#include "tst_german.moc"
