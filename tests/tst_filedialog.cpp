// The program's own file dialog: its form, the listing, the recent-directory and filter
// boxes, and the four entry points driven as the user drives them.

#include "dialogs/scqtfileedit.h"
#include "dialogs/scqtfileeditdlg.h"
#include "formcheck.h"
#include "forms/scqtfiledlg.h"
#include "modalhelper.h"
#include "stdoutcapture.h"
#include "widgetreaders.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QLineEdit>
#include <QPixmap>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QTreeWidget>

#include <sys/stat.h>

namespace {

void writeFile(const QString &path, int size)
{
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
    QCOMPARE(f.write(QByteArray(size, 'x')), qint64(size));
}

// The rows of the list as "name|size|type", top to bottom.
QStringList rows(QTreeWidget *view)
{
    return WidgetReaders::treeRows(view);
}

QStringList names(QTreeWidget *view)
{
    return WidgetReaders::columnTexts(view);
}

QTreeWidgetItem *item(QTreeWidget *view, const QString &name)
{
    return WidgetReaders::topLevelItem(view, name);
}

QStringList entries(QComboBox *box)
{
    return WidgetReaders::comboTexts(box);
}

bool sameImage(const QIcon &icon, const char *resource)
{
    return FormCheck::showsPicture(icon, QPixmap(QString::fromLatin1(resource)));
}

// Entering a directory refills the list from a short timer: waits until the list's names
// hold `name` (or no longer do, when `held` is false), and notes it in `out` when they never
// do.
void waitForListing(QTreeWidget *view, const QString &name, bool held, ModalOutcome &out)
{
    if (!QTest::qWaitFor([&] { return names(view).contains(name) == held; }, 2000))
        out.error += QStringLiteral("the list never %1 %2; ")
                         .arg(held ? QStringLiteral("showed") : QStringLiteral("dropped"), name);
}

// The file dialog's form as designed. The button that makes a directory carries the texts
// of the OK button.
const FormCheck::WidgetRow fileFormWidgets[] = {
    {"ScQtFileDlg", "ScQtFileDlg", "FileDlg"},
    {"TypeComboBox", "QComboBox", "", "file type filter",
     "ComboBox FileTypeFilter\n\nedit or select the filter"},
    {"OkButton", "QToolButton", "", "confirms the selection and closes the form", "OKButton",
     ":/pixmaps/ok.xpm"},
    {"CancelButton", "QToolButton", "", "cancels the selection and closes the form", "CancelButton",
     ":/pixmaps/cancel.xpm"},
    {"FNameLineEdit", "QLineEdit", "", "shows the selected filename",
     "Filename LineEdit\n\nshows the selected file\nand allows the direct filename\nedit"},
    {"MkDirButton", "QToolButton", "", "confirms the selection and closes the form", "OKButton",
     ":/pixmaps/mkdir.xpm"},
    {"DirComboBox", "QComboBox", "", "",
     "ComboBox Directory \nedit or select the directories name"},
    {"ListView", "QTreeWidget", "Name|size|type", "directory listview",
     "Directory ListView\n\nshows the list of dirs and files"},
};

const FormCheck::StubRow fileFormStubs[] = {
    {"slotCancel()", "ScQtFileDlg::slotCancel(): Not implemented yet!"},
    {"slotDirComboBoxChanged(int)",
     "ScQtFileDlg::slotDirComboBoxChanged( int ): Not implemented yet!"},
    {"slotDoubleClicked(QTreeWidgetItem*)",
     "ScQtFileDlg::slotDoubleClicked( QTreeWidgetItem * ): Not implemented yet!"},
    {"slotFileTextChanged(QString)",
     "ScQtFileDlg::slotFileTextChanged( const QString & ): Not implemented yet!"},
    {"slotMkDir()", "ScQtFileDlg::slotMkDir(): Not implemented yet!"},
    {"slotOK()", "ScQtFileDlg::slotOK(): Not implemented yet!"},
    {"slotSelectionChanged(QTreeWidgetItem*)",
     "ScQtFileDlg::slotSelectionChanged( QTreeWidgetItem * ): Not implemented yet!"},
    {"slotTypeComboBoxChanged(int)",
     "ScQtFileDlg::slotTypeComboBoxChanged( int ): Not implemented yet!"},
};

// Records which slot a signal of the form reached.
class SlotRecorder : public ScQtFileDlg
{
public:
    QStringList calls;
    void slotCancel() override { calls << "slotCancel"; }
    void slotDirComboBoxChanged(int i) override
    {
        calls << QString("slotDirComboBoxChanged %1").arg(i);
    }
    void slotDoubleClicked(QTreeWidgetItem *i) override
    {
        calls << "slotDoubleClicked " + (i ? i->text(0) : QString("null"));
    }
    void slotFileTextChanged(const QString &t) override { calls << "slotFileTextChanged " + t; }
    void slotMkDir() override { calls << "slotMkDir"; }
    void slotOK() override { calls << "slotOK"; }
    void slotSelectionChanged(QTreeWidgetItem *i) override
    {
        calls << "slotSelectionChanged " + (i ? i->text(0) : QString("null"));
    }
    void slotTypeComboBoxChanged(int i) override
    {
        calls << QString("slotTypeComboBoxChanged %1").arg(i);
    }
};

} // namespace

class TestFileDialog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    // The form.
    void formWidgetsCarryTheirNamesTextsAndTips();
    void formLaysOutItsRowsTopToBottom();
    void formStubSlotsWarnNotImplemented();
    void formConnectsItsSignalsToTheSlots();

    // The dialog.
    void constructorFillsBothBoxesBehindTheirFirstEntry();
    void dotIsNotListedAndDotDotIs();
    void dotDotIsEnteredByASingleTap();
    void fileSizeShowsInBytesAndDirectoriesAndLinksShowNone();
    void linkToADirectoryCountsAsADirectory();
    void listRisesByNameWhateverTheDirectoryDelivers();
    void nameFilterHidesDirectoriesThatDoNotMatch();
    void otherKindsOfEntryPrintSomethingElseAndKeepTheTypeBefore();
    void directoryBoxDropsItsSecondEntryFirstAtTheNinthDirectory();
    void knownDirectoryMakesItsEntryCurrentAndAddsNone();
    void typeBoxHoldsEightEntriesAtMostKeepingTheFirst();
    void unreadableDirectoryFromTheListGoesBackToTheOldOne();
    void unreadableDirectoryFromTheBoxLeavesTheListAsItIs();
    void doubleTapOnAFileDoesNotAcceptIt();
    void selectedPathWithoutANameIsTheDirectory();
    void dirBaseNameIsTheLastPartOfTheDirectory();

    // The entry points.
    void saveAppendsTheExtensionOfTheFilter();
    void saveKeepsANameThatHoldsTheExtension();
    void saveKeepsANameThatHoldsTheExtensionInside();
    void saveWithTheFilterStarAddsNoExtension();
    void saveWithAFilterWithoutADotAddsNothing();
    void cancelReturnsAnEmptyText();
    void openReturnsTheFileTappedInTheList();
    void openReachesAFileInASubdirectoryByTaps();
    void openAddsNoExtension();
    void openListsSystemEntriesAndSaveDoesNot();
    void linkToAFileCannotBePickedFromTheList();
    void linkToAFileCanBeTyped();
    void typeBoxChangesTheListingOnlyWhereTheNameFilterIsUsed();
    void existingDirectoryListsDirectoriesOnly();
    void newFileNameMakesADirectoryAndAppendsTheExtension();
    void mkDirButtonIsUsableOnlyForANewFileName();

private:
    std::unique_ptr<QTemporaryDir> tmp;
    QString dir;
};

void TestFileDialog::init()
{
    QTest::failOnWarning(QRegularExpression("Not implemented yet!"));
    tmp = std::make_unique<QTemporaryDir>();
    QVERIFY(tmp->isValid());
    dir = QFileInfo(tmp->path()).canonicalFilePath();
    writeFile(dir + "/alpha.wfn", 123);
    writeFile(dir + "/beta.txt", 5);
    writeFile(dir + "/.hidden.wfn", 7);
    QVERIFY(QDir(dir).mkdir("sub"));
    writeFile(dir + "/sub/inner.wfn", 42);
    QVERIFY(QFile::link(dir + "/alpha.wfn", dir + "/link.wfn"));
    QVERIFY(QFile::link(dir + "/sub", dir + "/dirlink"));
    QVERIFY(QFile::link(dir + "/nowhere", dir + "/broken.wfn"));
}

void TestFileDialog::cleanup()
{
    tmp.reset();
}

void TestFileDialog::formWidgetsCarryTheirNamesTextsAndTips()
{
    ScQtFileDlg form;
    FormCheck::checkWidgets(&form, fileFormWidgets);
    if (QTest::currentTestFailed())
        return;
    QVERIFY(form.TypeComboBox->isEditable());
    QVERIFY(!form.TypeComboBox->duplicatesEnabled());
    QCOMPARE(form.OkButton->iconSize(), QSize(24, 16));
    QCOMPARE(form.MkDirButton->iconSize(), QSize(17, 15));
    QVERIFY(form.DirComboBox->isEditable());
    QVERIFY(!form.DirComboBox->duplicatesEnabled());
    QVERIFY(form.ListView->rootIsDecorated());

    // The pixmaps: sizes and numbers of colours as drawn.
    const struct
    {
        const char *file;
        int w, h, colours;
    } images[] = {
        {":/pixmaps/file.xpm", 16, 16, 5},  {":/pixmaps/dir.xpm", 16, 16, 6},
        {":/pixmaps/link.xpm", 16, 16, 10}, {":/pixmaps/up.xpm", 15, 13, 3},
        {":/pixmaps/ok.xpm", 24, 16, 3},    {":/pixmaps/cancel.xpm", 24, 16, 4},
        {":/pixmaps/mkdir.xpm", 17, 15, 4},
    };
    for (const auto &img : images) {
        QFile f(QString::fromLatin1(img.file));
        QVERIFY2(f.open(QIODevice::ReadOnly), img.file);
        const QByteArray head =
            QString("\"%1 %2 %3 1\"").arg(img.w).arg(img.h).arg(img.colours).toLatin1();
        QVERIFY2(f.readAll().contains(head), img.file);
        const QPixmap pixmap(QString::fromLatin1(img.file));
        QCOMPARE(pixmap.size(), QSize(img.w, img.h));
    }
}

void TestFileDialog::formLaysOutItsRowsTopToBottom()
{
    ScQtFileDlg form;
    QCOMPARE(FormCheck::layoutOutline(form.layout()),
             (QStringList{"QVBoxLayout margins 11 spacing 6", "  QHBoxLayout margins 0 spacing 6",
                          "    TypeComboBox", "    spacer 20x20 Expanding", "    OkButton",
                          "    CancelButton", "  QHBoxLayout margins 0 spacing 6",
                          "    FNameLineEdit", "    MkDirButton", "  DirComboBox", "  ListView"}));
}

void TestFileDialog::formStubSlotsWarnNotImplemented()
{
    ScQtFileDlg form;
    FormCheck::checkStubs(&form, ScQtFileDlg::staticMetaObject, fileFormStubs);
    QCOMPARE(form.result(), 0);
}

void TestFileDialog::formConnectsItsSignalsToTheSlots()
{
    SlotRecorder form;
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    form.OkButton->click();
    form.CancelButton->click();
    form.MkDirButton->click();
    form.DirComboBox->addItems({"/", "/tmp"});
    emit form.DirComboBox->activated(1);
    form.TypeComboBox->addItems({"*", "*.wfn"});
    emit form.TypeComboBox->activated(1);
    QTest::keyClicks(form.FNameLineEdit, "a");
    QTest::keyClick(form.FNameLineEdit, Qt::Key_Return);
    auto *row = new QTreeWidgetItem(QStringList{"row", "", "file"});
    form.ListView->addTopLevelItem(row);
    form.calls.clear();
    QVERIFY(ModalHelper::tapItem(form.ListView, row));
    form.ListView->setFocus();
    QTest::keyClick(form.ListView, Qt::Key_Return);
    const QRect rect = form.ListView->visualItemRect(row);
    QTest::mouseDClick(form.ListView->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
    QVERIFY(form.calls.contains("slotSelectionChanged row"));
    QCOMPARE(form.calls.count("slotDoubleClicked row"), 1);
    // Return on the row hands it over as well (a double tap may also activate it).
    QVERIFY(form.calls.count("slotSelectionChanged row") >= 2);
    form.hide();

    SlotRecorder other;
    other.OkButton->click();
    other.CancelButton->click();
    other.MkDirButton->click();
    other.DirComboBox->addItems({"/", "/tmp"});
    emit other.DirComboBox->activated(1);
    other.TypeComboBox->addItems({"*", "*.wfn"});
    emit other.TypeComboBox->activated(1);
    other.FNameLineEdit->setText("a");
    emit other.FNameLineEdit->returnPressed();
    QCOMPARE(other.calls,
             QStringList({"slotOK", "slotCancel", "slotMkDir", "slotDirComboBoxChanged 1",
                          "slotTypeComboBoxChanged 1", "slotFileTextChanged a", "slotOK"}));
}

void TestFileDialog::constructorFillsBothBoxesBehindTheirFirstEntry()
{
    ScQtFileEditDlg dlg(nullptr, "", dir, "*.wfn");
    dlg.hide();
    QCOMPARE(entries(dlg.DirComboBox), QStringList({"/", dir}));
    QCOMPARE(entries(dlg.TypeComboBox), QStringList({"*", "*.wfn"}));
    QVERIFY(!dlg.MkDirButton->isEnabled());
    QVERIFY(dlg.isModal());
    QVERIFY(dlg.ListView->allColumnsShowFocus());
    QCOMPARE(dlg.windowTitle(), QString("FileDlg"));
    // Nothing is listed before refresh.
    QCOMPARE(dlg.ListView->topLevelItemCount(), 0);

    ScQtFileEditDlg empty(nullptr, "", "", "");
    empty.hide();
    QCOMPARE(entries(empty.DirComboBox), QStringList({"/"}));
    QCOMPARE(entries(empty.TypeComboBox), QStringList({"*"}));
}

void TestFileDialog::dotIsNotListedAndDotDotIs()
{
    ScQtFileEditDlg dlg(nullptr, "", dir, "*");
    dlg.hide();
    dlg.refresh();
    const QStringList listed = names(dlg.ListView);
    QVERIFY(!listed.contains("."));
    QVERIFY(listed.contains(".."));
    QVERIFY(!listed.contains(".hidden.wfn"));
    QVERIFY(sameImage(item(dlg.ListView, "..")->icon(0), ":/pixmaps/up.xpm"));
    QCOMPARE(item(dlg.ListView, "..")->text(2), QString("dir"));
}

void TestFileDialog::dotDotIsEnteredByASingleTap()
{
    QVERIFY(QDir(dir).mkdir("sub/deeper"));
    const QString sub = dir + "/sub";
    QStringList before, after;
    ModalTicket t = ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<ScQtFileDlg *>(w) != nullptr; },
        [&](QWidget *w, ModalOutcome &out) {
            auto *dlg = static_cast<ScQtFileDlg *>(w);
            before = names(dlg->ListView);
            if (!ModalHelper::tapItem(dlg->ListView, item(dlg->ListView, "..")))
                out.error = "can't tap ..";
            // The list is refilled by the short timer, not at the tap.
            waitForListing(dlg->ListView, "sub", true, out);
            after = names(dlg->ListView);
            dlg->OkButton->click();
        });
    const QString path = ScQtFileEdit::getOpenFileName(nullptr, "", sub, "*");
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    QCOMPARE(before, QStringList({"..", "deeper", "inner.wfn"}));
    QVERIFY(after.contains("sub"));
    QVERIFY(after.contains("alpha.wfn"));
    // Accepted without a name: the caller gets the directory.
    QCOMPARE(path, dir);
}

void TestFileDialog::fileSizeShowsInBytesAndDirectoriesAndLinksShowNone()
{
    ScQtFileEditDlg dlg(nullptr, "", dir, "*");
    dlg.setFilterSpec(7);
    dlg.setUseNameFilter(true);
    dlg.hide();
    dlg.refresh();
    const QStringList r = rows(dlg.ListView);
    QVERIFY(r.contains("alpha.wfn|123|file"));
    QVERIFY(r.contains("beta.txt|5|file"));
    QVERIFY(r.contains("sub||dir"));
    QVERIFY(r.contains("link.wfn||link"));
    QVERIFY(r.contains("..||dir"));
    QVERIFY(sameImage(item(dlg.ListView, "alpha.wfn")->icon(0), ":/pixmaps/file.xpm"));
    QVERIFY(sameImage(item(dlg.ListView, "sub")->icon(0), ":/pixmaps/dir.xpm"));
    QVERIFY(sameImage(item(dlg.ListView, "link.wfn")->icon(0), ":/pixmaps/link.xpm"));
    QCOMPARE(item(dlg.ListView, "alpha.wfn")->textAlignment(1) & Qt::AlignHorizontal_Mask,
             int(Qt::AlignRight));
}

void TestFileDialog::linkToADirectoryCountsAsADirectory()
{
    ScQtFileEditDlg dlg(nullptr, "", dir, "*");
    dlg.hide();
    dlg.refresh();
    QVERIFY(rows(dlg.ListView).contains("dirlink||dir"));
    QVERIFY(sameImage(item(dlg.ListView, "dirlink")->icon(0), ":/pixmaps/dir.xpm"));
}

void TestFileDialog::listRisesByNameWhateverTheDirectoryDelivers()
{
    ScQtFileEditDlg dlg(nullptr, "", dir, "*");
    dlg.setDirsFirst(true);
    dlg.setFilterSpec(519);
    dlg.hide();
    dlg.refresh();
    // Directories first is the directory's order; the list sorts by name all the same.
    QCOMPARE(
        names(dlg.ListView),
        QStringList({"..", "alpha.wfn", "beta.txt", "broken.wfn", "dirlink", "link.wfn", "sub"}));
}

void TestFileDialog::nameFilterHidesDirectoriesThatDoNotMatch()
{
    // The name filter is the directory's: it applies to directories as well.
    ScQtFileEditDlg dlg(nullptr, "", dir, "*.wfn");
    dlg.setUseNameFilter(true);
    dlg.hide();
    dlg.refresh();
    QCOMPARE(names(dlg.ListView), QStringList({"alpha.wfn", "link.wfn"}));
}

void TestFileDialog::otherKindsOfEntryPrintSomethingElseAndKeepTheTypeBefore()
{
    QTemporaryDir other;
    QVERIFY(other.isValid());
    writeFile(other.path() + "/a.txt", 5);
    QCOMPARE(::mkfifo(QFile::encodeName(other.path() + "/b.fifo").constData(), 0600), 0);
    ScQtFileEditDlg dlg(nullptr, "", other.path(), "*");
    dlg.setFilterSpec(519);
    dlg.setDirsFirst(true);
    dlg.hide();
    StdoutCapture capture;
    dlg.refresh();
    const QByteArray printed = capture.bytes();
    QCOMPARE(printed, QByteArray("something else\n"));
    // The pipe comes behind a.txt and shows its size and type.
    QVERIFY(rows(dlg.ListView).contains("b.fifo|5|file"));
    QVERIFY(item(dlg.ListView, "b.fifo")->icon(0).isNull());
}

void TestFileDialog::directoryBoxDropsItsSecondEntryFirstAtTheNinthDirectory()
{
    QString chain = dir;
    for (int i = 1; i <= 8; ++i) {
        chain += QString("/d%1").arg(i);
        QVERIFY(QDir().mkpath(chain));
    }
    QList<QStringList> seen;
    ModalTicket t = ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<ScQtFileDlg *>(w) != nullptr; },
        [&](QWidget *w, ModalOutcome &out) {
            auto *dlg = static_cast<ScQtFileDlg *>(w);
            seen << entries(dlg->DirComboBox);
            for (int i = 1; i <= 8; ++i) {
                if (!ModalHelper::tapItem(dlg->ListView,
                                          item(dlg->ListView, QString("d%1").arg(i))))
                    out.error += QString("can't tap d%1; ").arg(i);
                waitForListing(dlg->ListView, QString("d%1").arg(i), false, out);
                seen << entries(dlg->DirComboBox);
            }
            dlg->CancelButton->click();
        });
    const QString path = ScQtFileEdit::getOpenFileName(nullptr, "", dir, "*");
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    QCOMPARE(path, QString(""));
    QCOMPARE(seen.size(), 9);
    QString d = dir;
    QStringList visited = {dir};
    for (int i = 1; i <= 8; ++i)
        visited << (d += QString("/d%1").arg(i));
    QCOMPARE(seen[0], QStringList({"/", dir}));
    // Eight entries after the sixth subdirectory: the root and seven directories.
    QCOMPARE(seen[6], QStringList({"/"}) + visited.mid(0, 7));
    // The ninth directory drops the second entry; the root stays.
    QCOMPARE(seen[7], QStringList({"/"}) + visited.mid(1, 7));
    QCOMPARE(seen[8], QStringList({"/"}) + visited.mid(2, 7));
}

void TestFileDialog::knownDirectoryMakesItsEntryCurrentAndAddsNone()
{
    QStringList afterSub, afterBack;
    int currentAfterBack = -1;
    ModalTicket t = ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<ScQtFileDlg *>(w) != nullptr; },
        [&](QWidget *w, ModalOutcome &out) {
            auto *dlg = static_cast<ScQtFileDlg *>(w);
            if (!ModalHelper::tapItem(dlg->ListView, item(dlg->ListView, "sub")))
                out.error += "can't tap sub; ";
            waitForListing(dlg->ListView, "sub", false, out);
            afterSub = entries(dlg->DirComboBox);
            if (!ModalHelper::tapItem(dlg->ListView, item(dlg->ListView, "..")))
                out.error += "can't tap ..; ";
            waitForListing(dlg->ListView, "sub", true, out);
            afterBack = entries(dlg->DirComboBox);
            currentAfterBack = dlg->DirComboBox->currentIndex();
            dlg->CancelButton->click();
        });
    ScQtFileEdit::getOpenFileName(nullptr, "", dir, "*");
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    QCOMPARE(afterSub, QStringList({"/", dir, dir + "/sub"}));
    QCOMPARE(afterBack, afterSub);
    QCOMPARE(currentAfterBack, 1);
}

void TestFileDialog::typeBoxHoldsEightEntriesAtMostKeepingTheFirst()
{
    ScQtFileEditDlg dlg(nullptr, "", dir, "*.wfn");
    dlg.hide();
    QStringList filters;
    for (int i = 1; i <= 8; ++i) {
        filters << QString("*.t%1").arg(i);
        dlg.readDir(dir, filters.last());
    }
    // "*", "*.wfn", then six; the seventh drops "*.wfn", the eighth "*.t1".
    QCOMPARE(entries(dlg.TypeComboBox), QStringList({"*"}) + filters.mid(1, 7));
    QCOMPARE(dlg.TypeComboBox->currentText(), QString("*.t8"));
    dlg.readDir(dir, "*.t5");
    QCOMPARE(dlg.TypeComboBox->count(), 8);
    QCOMPARE(dlg.TypeComboBox->currentText(), QString("*.t5"));
    // An empty filter counts as "*", which stays first.
    dlg.readDir(dir, "");
    QCOMPARE(dlg.TypeComboBox->currentIndex(), 0);
    QCOMPARE(dlg.TypeComboBox->count(), 8);
}

void TestFileDialog::unreadableDirectoryFromTheListGoesBackToTheOldOne()
{
    QVERIFY(QDir(dir).mkdir("gone"));
    QStringList listedBefore, listedAfter, boxAfter;
    ModalTicket t = ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<ScQtFileDlg *>(w) != nullptr; },
        [&](QWidget *w, ModalOutcome &out) {
            auto *dlg = static_cast<ScQtFileDlg *>(w);
            listedBefore = names(dlg->ListView);
            QDir(dir).rmdir("gone");
            if (!ModalHelper::tapItem(dlg->ListView, item(dlg->ListView, "gone")))
                out.error += "can't tap gone; ";
            waitForListing(dlg->ListView, "gone", false, out);
            listedAfter = names(dlg->ListView);
            boxAfter = entries(dlg->DirComboBox);
            dlg->OkButton->click();
        });
    const QString path = ScQtFileEdit::getOpenFileName(nullptr, "", dir, "*");
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    QVERIFY(listedBefore.contains("gone"));
    // Back in the old directory, listed anew; the failed name went into the box.
    QVERIFY(!listedAfter.contains("gone"));
    QVERIFY(listedAfter.contains("alpha.wfn"));
    QCOMPARE(boxAfter, QStringList({"/", dir, dir + "/gone"}));
    QCOMPARE(path, dir);
}

void TestFileDialog::unreadableDirectoryFromTheBoxLeavesTheListAsItIs()
{
    QStringList listedBefore, listedAfter;
    ModalTicket t = ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<ScQtFileDlg *>(w) != nullptr; },
        [&](QWidget *w, ModalOutcome &) {
            auto *dlg = static_cast<ScQtFileDlg *>(w);
            listedBefore = names(dlg->ListView);
            dlg->DirComboBox->lineEdit()->setText(dir + "/nothing");
            QTest::keyClick(dlg->DirComboBox->lineEdit(), Qt::Key_Return);
            listedAfter = names(dlg->ListView);
            dlg->FNameLineEdit->setText("x.wfn");
            dlg->OkButton->click();
        });
    const QString path = ScQtFileEdit::getOpenFileName(nullptr, "", dir, "*");
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    QCOMPARE(listedAfter, listedBefore);
    // The directory is the new text all the same.
    QCOMPARE(path, dir + "/nothing/x.wfn");
}

void TestFileDialog::doubleTapOnAFileDoesNotAcceptIt()
{
    ScQtFileEditDlg dlg(nullptr, "", dir, "*");
    dlg.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dlg));
    dlg.refresh();
    QTreeWidgetItem *alpha = item(dlg.ListView, "alpha.wfn");
    QVERIFY(alpha);
    const QRect rect = dlg.ListView->visualItemRect(alpha);
    QTest::mouseClick(dlg.ListView->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
    QTest::mouseDClick(dlg.ListView->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
    QTRY_COMPARE(dlg.FNameLineEdit->text(), QString("alpha.wfn"));
    QVERIFY(dlg.isVisible());
    QCOMPARE(dlg.result(), 0);
    QCOMPARE(dlg.selectedPath(), dir + "/alpha.wfn");
    dlg.hide();
}

void TestFileDialog::selectedPathWithoutANameIsTheDirectory()
{
    ScQtFileEditDlg dlg(nullptr, "", dir + "/sub/../sub/", "*");
    dlg.hide();
    QCOMPARE(dlg.selectedPath(), dir + "/sub");
    dlg.FNameLineEdit->setText("a.wfn");
    QCOMPARE(dlg.selectedPath(), dir + "/sub/a.wfn");
}

void TestFileDialog::dirBaseNameIsTheLastPartOfTheDirectory()
{
    ScQtFileEditDlg dlg(nullptr, "", dir + "/sub", "*");
    dlg.hide();
    QCOMPARE(dlg.dirBaseName(), QString("sub"));
    ScQtFileEditDlg plain(nullptr, "", "data", "*");
    plain.hide();
    QCOMPARE(plain.dirBaseName(), QString("data"));
}

void TestFileDialog::saveAppendsTheExtensionOfTheFilter()
{
    ModalTicket t = ModalHelper::typeNameInNextFileDialog("trip");
    const QString path = ScQtFileEdit::getSaveFileName(nullptr, "", dir, "*.wfn");
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    QCOMPARE(t->title, QString("FileDlg"));
    QCOMPARE(path, dir + "/trip.wfn");
}

void TestFileDialog::saveKeepsANameThatHoldsTheExtension()
{
    ModalTicket t = ModalHelper::typeNameInNextFileDialog("trip.wfn");
    const QString path = ScQtFileEdit::getSaveFileName(nullptr, "", dir, "*.wfn");
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    QCOMPARE(path, dir + "/trip.wfn");
}

void TestFileDialog::saveKeepsANameThatHoldsTheExtensionInside()
{
    ModalTicket t = ModalHelper::typeNameInNextFileDialog("trip.wfn.old");
    const QString path = ScQtFileEdit::getSaveFileName(nullptr, "", dir, "*.wfn");
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    QCOMPARE(path, dir + "/trip.wfn.old");
    // Case counts: ".WFN" is not ".wfn".
    ModalTicket u = ModalHelper::typeNameInNextFileDialog("TRIP.WFN");
    QCOMPARE(ScQtFileEdit::getSaveFileName(nullptr, "", dir, "*.wfn"), dir + "/TRIP.WFN.wfn");
    QVERIFY2(u->handled, qPrintable(u->error));
}

void TestFileDialog::saveWithTheFilterStarAddsNoExtension()
{
    ModalTicket t = ModalHelper::typeNameInNextFileDialog("trip");
    const QString path = ScQtFileEdit::getSaveFileName(nullptr, "", dir, "*");
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    QCOMPARE(path, dir + "/trip");
}

void TestFileDialog::saveWithAFilterWithoutADotAddsNothing()
{
    ModalTicket t = ModalHelper::typeNameInNextFileDialog("trip");
    const QString path = ScQtFileEdit::getSaveFileName(nullptr, "", dir, "trip*");
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    QCOMPARE(path, dir + "/trip");
}

void TestFileDialog::cancelReturnsAnEmptyText()
{
    ModalTicket t = ModalHelper::cancelNextFileDialog();
    const QString path = ScQtFileEdit::getOpenFileName(nullptr, "", dir, "*.wfn");
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    QCOMPARE(path, QString(""));
    QVERIFY(!path.isNull());

    // Whatever was typed or chosen before.
    ModalTicket u = ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<ScQtFileDlg *>(w) != nullptr; },
        [](QWidget *w, ModalOutcome &) {
            auto *dlg = static_cast<ScQtFileDlg *>(w);
            dlg->FNameLineEdit->setText("trip");
            dlg->CancelButton->click();
        });
    QCOMPARE(ScQtFileEdit::getSaveFileName(nullptr, "", dir, "*.wfn"), QString(""));
    QVERIFY(u->handled);
}

void TestFileDialog::openReturnsTheFileTappedInTheList()
{
    ModalTicket t = ModalHelper::chooseFileInNextFileDialog("alpha.wfn");
    const QString path = ScQtFileEdit::getOpenFileName(nullptr, "", dir, "*.wfn");
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    QCOMPARE(path, dir + "/alpha.wfn");
}

void TestFileDialog::openReachesAFileInASubdirectoryByTaps()
{
    ModalTicket t = ModalHelper::chooseFileInNextFileDialog("sub/inner.wfn");
    const QString path = ScQtFileEdit::getOpenFileName(nullptr, "", dir, "*");
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    QCOMPARE(path, dir + "/sub/inner.wfn");
}

void TestFileDialog::openAddsNoExtension()
{
    ModalTicket t = ModalHelper::typeNameInNextFileDialog("trip");
    const QString path = ScQtFileEdit::getOpenFileName(nullptr, "", dir, "*.wfn");
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    QCOMPARE(path, dir + "/trip");
}

void TestFileDialog::openListsSystemEntriesAndSaveDoesNot()
{
    // A link to nothing is a system entry: only the open dialog lists it.
    QStringList opened, saved;
    auto grab = [](QStringList *into) {
        return ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<ScQtFileDlg *>(w) != nullptr; },
            [into](QWidget *w, ModalOutcome &) {
                auto *dlg = static_cast<ScQtFileDlg *>(w);
                *into = rows(dlg->ListView);
                dlg->CancelButton->click();
            });
    };
    ModalTicket a = grab(&opened);
    ScQtFileEdit::getOpenFileName(nullptr, "", dir, "*.wfn");
    ModalTicket b = grab(&saved);
    ScQtFileEdit::getSaveFileName(nullptr, "", dir, "*.wfn");
    QVERIFY(a->handled && b->handled);
    QCOMPARE(opened, QStringList({"alpha.wfn|123|file", "broken.wfn||link", "link.wfn||link"}));
    QCOMPARE(saved, QStringList({"alpha.wfn|123|file", "link.wfn||link"}));
}

void TestFileDialog::linkToAFileCannotBePickedFromTheList()
{
    ModalTicket t = ModalHelper::chooseFileInNextFileDialog("link.wfn");
    const QString path = ScQtFileEdit::getOpenFileName(nullptr, "", dir, "*.wfn");
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    // The tap chose nothing: OK gives the directory.
    QCOMPARE(path, dir);
}

void TestFileDialog::linkToAFileCanBeTyped()
{
    ModalTicket t = ModalHelper::typeNameInNextFileDialog("link.wfn");
    const QString path = ScQtFileEdit::getOpenFileName(nullptr, "", dir, "*.wfn");
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    QCOMPARE(path, dir + "/link.wfn");
}

void TestFileDialog::typeBoxChangesTheListingOnlyWhereTheNameFilterIsUsed()
{
    auto chooseStar = [](QStringList *before, QStringList *after) {
        return ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<ScQtFileDlg *>(w) != nullptr; },
            [before, after](QWidget *w, ModalOutcome &) {
                auto *dlg = static_cast<ScQtFileDlg *>(w);
                *before = names(dlg->ListView);
                dlg->TypeComboBox->setCurrentIndex(0); // "*"
                emit dlg->TypeComboBox->activated(0);
                *after = names(dlg->ListView);
                dlg->CancelButton->click();
            });
    };
    QStringList openBefore, openAfter, newBefore, newAfter;
    ModalTicket a = chooseStar(&openBefore, &openAfter);
    ScQtFileEdit::getOpenFileName(nullptr, "", dir, "*.wfn");
    ModalTicket b = chooseStar(&newBefore, &newAfter);
    ScQtFileEdit::getNewFileName(nullptr, "", dir, "*.wfn");
    QVERIFY(a->handled && b->handled);
    QVERIFY(!openBefore.contains("beta.txt"));
    QVERIFY(openAfter.contains("beta.txt"));
    QVERIFY(openAfter.contains(".."));
    // The new-file dialog keeps the filter that it was built with.
    QCOMPARE(newBefore, QStringList({"alpha.wfn", "link.wfn"}));
    QCOMPARE(newAfter, newBefore);
}

void TestFileDialog::existingDirectoryListsDirectoriesOnly()
{
    QStringList listed;
    QStringList types;
    ModalTicket t = ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<ScQtFileDlg *>(w) != nullptr; },
        [&](QWidget *w, ModalOutcome &) {
            auto *dlg = static_cast<ScQtFileDlg *>(w);
            listed = names(dlg->ListView);
            types = entries(dlg->TypeComboBox);
            dlg->OkButton->click();
        });
    const QString path = ScQtFileEdit::getExistingDirectory(nullptr, "", dir);
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    QCOMPARE(listed, QStringList({"..", "dirlink", "sub"}));
    QCOMPARE(types.first(), QString("*"));
    QCOMPARE(path, dir);
}

void TestFileDialog::newFileNameMakesADirectoryAndAppendsTheExtension()
{
    QStringList listed;
    QString lineAfter;
    ModalTicket t = ModalHelper::onNextModal(
        [](QWidget *w) { return qobject_cast<ScQtFileDlg *>(w) != nullptr; },
        [&](QWidget *w, ModalOutcome &) {
            auto *dlg = static_cast<ScQtFileDlg *>(w);
            QTest::keyClicks(dlg->FNameLineEdit, "newdir.wfn");
            dlg->MkDirButton->click();
            lineAfter = dlg->FNameLineEdit->text();
            listed = rows(dlg->ListView);
            // An empty name makes nothing.
            dlg->MkDirButton->click();
            QTest::keyClicks(dlg->FNameLineEdit, "trip");
            dlg->OkButton->click();
        });
    const QString path = ScQtFileEdit::getNewFileName(nullptr, "", dir, "*.wfn");
    QVERIFY2(t->handled && t->error.isEmpty(), qPrintable(t->error));
    QVERIFY(QFileInfo(dir + "/newdir.wfn").isDir());
    QCOMPARE(lineAfter, QString());
    QVERIFY(listed.contains("newdir.wfn||dir"));
    QCOMPARE(path, dir + "/trip.wfn");
}

void TestFileDialog::mkDirButtonIsUsableOnlyForANewFileName()
{
    QList<bool> enabled;
    auto look = [&enabled] {
        return ModalHelper::onNextModal(
            [](QWidget *w) { return qobject_cast<ScQtFileDlg *>(w) != nullptr; },
            [&enabled](QWidget *w, ModalOutcome &) {
                auto *dlg = static_cast<ScQtFileDlg *>(w);
                enabled << dlg->MkDirButton->isEnabled();
                dlg->CancelButton->click();
            });
    };
    look();
    ScQtFileEdit::getOpenFileName(nullptr, "", dir, "*.wfn");
    look();
    ScQtFileEdit::getSaveFileName(nullptr, "", dir, "*.wfn");
    look();
    ScQtFileEdit::getExistingDirectory(nullptr, "", dir);
    look();
    ScQtFileEdit::getNewFileName(nullptr, "", dir, "*.wfn");
    QCOMPARE(enabled, QList<bool>({false, false, false, true}));
}

QTEST_MAIN(TestFileDialog)
#include "tst_filedialog.moc"
