// The shipped help pages: what they teach a new user in both languages, the pictures they
// show, and which page the viewer takes for the language the program speaks.
#include "shellfixture.h"

#include "helpviewer/helppage.h"
#include "helpviewer/helpwindow.h"
#include "shell/wayfernapp.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QKeySequence>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <QTextDocument>

namespace {

QString sharedPage(const QString &name)
{
    return QStringLiteral(WAYFERN_SHARE_DIR "/help/") + name;
}

QString englishPage()
{
    return sharedPage(QStringLiteral("wayfern.html"));
}
QString germanPage()
{
    return sharedPage(QStringLiteral("wayfern_de.html"));
}

QByteArray bytesOf(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QByteArray();
    return f.readAll();
}

QString htmlOf(const QString &page)
{
    return QString::fromUtf8(bytesOf(page));
}

// What a reader sees: the text without the markup, so that a word only in a tag or an
// attribute does not count.
QString textOf(const QString &page)
{
    QTextDocument doc;
    doc.setHtml(htmlOf(page));
    return doc.toPlainText();
}

// The pictures a page shows, as written in it.
QStringList picturesOf(const QString &page)
{
    QStringList sources;
    static const QRegularExpression img(QStringLiteral("<img[^>]*\\ssrc=\"([^\"]+)\""),
                                        QRegularExpression::CaseInsensitiveOption);
    auto it = img.globalMatch(htmlOf(page));
    while (it.hasNext())
        sources << it.next().captured(1);
    return sources;
}

void touch(const QString &path)
{
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write("<html><body>page</body></html>");
}

// The keys of the window: every action's shortcut as a page writes it ("Ctrl+N").
QStringList windowKeys()
{
    ShellFixture fx;
    WayfernApp app;
    QStringList keys;
    const QList<QAction *> actions = app.findChildren<QAction *>();
    for (const QAction *action : actions) {
        const QList<QKeySequence> shortcuts = action->shortcuts();
        for (const QKeySequence &key : shortcuts)
            keys << key.toString(QKeySequence::PortableText);
    }
    keys.removeDuplicates();
    return keys;
}

} // namespace

class TestHelpPage : public QObject
{
    Q_OBJECT

private slots:
    void init() { QTest::failOnWarning(QRegularExpression("Not implemented yet!")); }

    // --- Which page for which language.

    void germanPageBesideTheConfiguredOneIsTakenForGerman()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString page = dir.filePath(QStringLiteral("help.html"));
        const QString german = dir.filePath(QStringLiteral("help_de.html"));
        touch(page);
        touch(german);
        QCOMPARE(QFileInfo(HelpPage::forLocale(page, QLocale(QLocale::German, QLocale::Germany)))
                     .absoluteFilePath(),
                 QFileInfo(german).absoluteFilePath());
        // Every country of the language reads the same page.
        QCOMPARE(QFileInfo(HelpPage::forLocale(page, QLocale(QLocale::German, QLocale::Austria)))
                     .absoluteFilePath(),
                 QFileInfo(german).absoluteFilePath());
        QCOMPARE(
            QFileInfo(HelpPage::forLocale(page, QLocale(QLocale::German, QLocale::Switzerland)))
                .absoluteFilePath(),
            QFileInfo(german).absoluteFilePath());
    }

    void configuredPageStaysWhenNoTranslationStandsBesideIt()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString page = dir.filePath(QStringLiteral("help.html"));
        touch(page);
        QCOMPARE(HelpPage::forLocale(page, QLocale(QLocale::German, QLocale::Germany)), page);
        // A folder of that name is no page.
        QVERIFY(QDir(dir.path()).mkdir(QStringLiteral("help_de.html")));
        QCOMPARE(HelpPage::forLocale(page, QLocale(QLocale::German, QLocale::Germany)), page);
    }

    void otherLanguagesKeepTheConfiguredPage()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString page = dir.filePath(QStringLiteral("help.html"));
        touch(page);
        touch(dir.filePath(QStringLiteral("help_de.html")));
        QCOMPARE(HelpPage::forLocale(page, QLocale(QLocale::English, QLocale::UnitedStates)), page);
        QCOMPARE(HelpPage::forLocale(page, QLocale(QLocale::English, QLocale::UnitedKingdom)),
                 page);
        QCOMPARE(HelpPage::forLocale(page, QLocale(QLocale::French, QLocale::France)), page);
        QCOMPARE(HelpPage::forLocale(page, QLocale::c()), page);
    }

    void germanPageIsNotLookedUpAgain()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString german = dir.filePath(QStringLiteral("help_de.html"));
        touch(dir.filePath(QStringLiteral("help.html")));
        touch(german);
        QCOMPARE(HelpPage::forLocale(german, QLocale(QLocale::German, QLocale::Germany)), german);
    }

    void missingOrEmptyPageIsHandedOnAsItIs()
    {
        // The window then says that the page was not found, naming the configured one.
        const QString missing = QStringLiteral("/nonexistent/help.html");
        QCOMPARE(HelpPage::forLocale(missing, QLocale(QLocale::German, QLocale::Germany)), missing);
        QCOMPARE(HelpPage::forLocale(QString(), QLocale(QLocale::German, QLocale::Germany)),
                 QString());
    }

    void shippedGermanPageIsFoundBesideTheShippedOne()
    {
        QCOMPARE(QFileInfo(
                     HelpPage::forLocale(englishPage(), QLocale(QLocale::German, QLocale::Germany)))
                     .absoluteFilePath(),
                 QFileInfo(germanPage()).absoluteFilePath());
        QCOMPARE(HelpPage::forLocale(englishPage(), QLocale(QLocale::English)), englishPage());
    }

    // --- What the pages teach.

    void pageTeaches_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("text");
        const QStringList english{
            QStringLiteral("kitty"),
            QStringLiteral("deposit"),
            QStringLiteral("pay-off"),
            QStringLiteral("Settle up"),
            QStringLiteral("fewest transfers"),
            QStringLiteral("Book the plan"),
            QStringLiteral("whole cents"),
            QStringLiteral("same proportions"),
            QStringLiteral("When a synchronisation fails"),
            QStringLiteral("no connection to the server"),
            QStringLiteral("the server refused the request"),
            QStringLiteral("no rate for a currency"),
            QStringLiteral("no answer within 30 seconds"),
            QStringLiteral("check the network"),
            QStringLiteral("catalogue button"),
            QStringLiteral("custom"),
            QStringLiteral("point or comma"),
            QStringLiteral("refused"),
            QStringLiteral("Every cost has a date"),
            QStringLiteral("Deleting a traveller"),
            QStringLiteral("JOURNEYNAME.recovery"),
            QStringLiteral("keeps the file aside under its date"),
            QStringLiteral("One window per journey"),
            QStringLiteral("From the file manager"),
            QStringLiteral("Journey report"),
            QStringLiteral("NAME-accounts.csv"),
        };
        const QStringList german{
            QStringLiteral("Kasse"),
            QStringLiteral("Einzahlung"),
            QStringLiteral("Auszahlung"),
            QStringLiteral("Abrechnen"),
            QStringLiteral("wenigsten Überweisungen"),
            QStringLiteral("Plan buchen"),
            QStringLiteral("ganze Cent"),
            QStringLiteral("im selben Verhältnis"),
            QStringLiteral("Wenn ein Abgleich fehlschlägt"),
            QStringLiteral("keine Verbindung zum Server"),
            QStringLiteral("der Server hat die Anfrage abgelehnt"),
            QStringLiteral("kein Kurs für eine Währung"),
            QStringLiteral("keine Antwort innerhalb von 30 Sekunden"),
            QStringLiteral("Netzverbindung prüfen"),
            QStringLiteral("Katalog"),
            QStringLiteral("Eigene"),
            QStringLiteral("Komma oder Punkt"),
            QStringLiteral("abgelehnt"),
            QStringLiteral("Jede Ausgabe hat ein Datum"),
            QStringLiteral("Einen Reisenden löschen"),
            QStringLiteral("REISENAME.recovery"),
            QStringLiteral("unter ihrem Datum beiseite"),
            QStringLiteral("Ein Fenster pro Reise"),
            QStringLiteral("Aus dem Dateimanager"),
            QStringLiteral("Reisebericht"),
            QStringLiteral("NAME-accounts.csv"),
        };
        for (const QString &text : english)
            QTest::newRow(qPrintable(QStringLiteral("en: ") + text)) << englishPage() << text;
        for (const QString &text : german)
            QTest::newRow(qPrintable(QStringLiteral("de: ") + text)) << germanPage() << text;
    }

    void pageTeaches()
    {
        QFETCH(QString, page);
        QFETCH(QString, text);
        QVERIFY2(textOf(page).contains(text),
                 qPrintable(QStringLiteral("%1 does not say \"%2\"").arg(page, text)));
    }

    void pagesNameEveryKeyOfTheWindowAndNoOther_data()
    {
        QTest::addColumn<QString>("page");
        QTest::newRow("en") << englishPage();
        QTest::newRow("de") << germanPage();
    }

    void pagesNameEveryKeyOfTheWindowAndNoOther()
    {
        QFETCH(QString, page);
        const QStringList keys = windowKeys();
        // New, open, save, save as, base, currencies, travellers, help, quit.
        QVERIFY2(keys.size() >= 9, qPrintable(keys.join(u' ')));
        const QString text = textOf(page);
        for (const QString &key : keys)
            QVERIFY2(text.contains(key), qPrintable(page + QStringLiteral(": no ") + key));
        // A key the window does not have is not promised either.
        static const QRegularExpression named(QStringLiteral("\\bCtrl\\+(?:Shift\\+)?[A-Z]\\b"));
        auto it = named.globalMatch(text);
        while (it.hasNext()) {
            const QString key = it.next().captured(0);
            QVERIFY2(keys.contains(key),
                     qPrintable(page + QStringLiteral(" names ") + key
                                + QStringLiteral(", which the window does not have")));
        }
    }

    // --- The pictures.

    void picturesArePresentAndAsInTheDocs_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("folder"); // where the page's pictures come from in docs/
        QTest::newRow("en") << englishPage() << QStringLiteral("pictures/");
        QTest::newRow("de") << germanPage() << QStringLiteral("pictures/de/");
    }

    void picturesArePresentAndAsInTheDocs()
    {
        QFETCH(QString, page);
        QFETCH(QString, folder);
        const QStringList pictures = picturesOf(page);
        // The main window, the share dialog, a deposit, settling up, a synchronisation, a tip.
        QVERIFY2(pictures.size() >= 6, qPrintable(pictures.join(u' ')));
        const QDir pageDir = QFileInfo(page).absoluteDir();
        for (const QString &src : pictures) {
            QVERIFY2(src.startsWith(folder) && !src.mid(folder.size()).contains(u'/'),
                     qPrintable(src + QStringLiteral(" is not in ") + folder));
            const QString file = pageDir.filePath(src);
            QVERIFY2(QFileInfo(file).isFile(), qPrintable(file + QStringLiteral(" is missing")));
            const QImage image(file);
            QVERIFY2(!image.isNull(), qPrintable(file + QStringLiteral(" is no picture")));
            QCOMPARE(image.size(), QSize(480, 640));
            // The copy beside the page is the picture of the docs, as the screenshots made it.
            const QString docs = QStringLiteral(WAYFERN_DOCS_DIR "/")
                + (folder.endsWith(QStringLiteral("de/")) ? QStringLiteral("de/") : QString())
                + QFileInfo(src).fileName();
            QVERIFY2(bytesOf(file) == bytesOf(docs),
                     qPrintable(file + QStringLiteral(" differs from ") + docs));
        }
    }

    void pagesNeedNothingFromOutside_data() { pagesNameEveryKeyOfTheWindowAndNoOther_data(); }

    void pagesNeedNothingFromOutside()
    {
        QFETCH(QString, page);
        const QString html = htmlOf(page);
        QVERIFY(!html.isEmpty());
        QVERIFY(!html.contains(QStringLiteral("<script"), Qt::CaseInsensitive));
        static const QRegularExpression outside(
            QStringLiteral("(?:src|href)\\s*=\\s*\"(?:[a-z]+:|//)|url\\("),
            QRegularExpression::CaseInsensitiveOption);
        const QRegularExpressionMatch match = outside.match(html);
        QVERIFY2(!match.hasMatch(), qPrintable(match.captured(0)));
        // Every link inside the page has its anchor.
        static const QRegularExpression link(QStringLiteral("href=\"#([^\"]+)\""));
        auto it = link.globalMatch(html);
        int links = 0;
        while (it.hasNext()) {
            const QString anchor = it.next().captured(1);
            QVERIFY2(html.contains(QStringLiteral("name=\"%1\"").arg(anchor)), qPrintable(anchor));
            ++links;
        }
        QVERIFY(links > 0);
    }

    void helpWindowShowsThePageWithItsPictures_data()
    {
        pagesNameEveryKeyOfTheWindowAndNoOther_data();
    }

    void helpWindowShowsThePageWithItsPictures()
    {
        QFETCH(QString, page);
        HelpWindow window;
        window.showPage(page);
        // The whole page, its letters read as UTF-8 ("Überweisungen", not mojibake).
        QCOMPARE(window.browser->toPlainText(), textOf(page));
        QVERIFY(window.browser->toPlainText().contains(QStringLiteral("Ctrl+Q")));
        const QStringList pictures = picturesOf(page);
        QVERIFY(!pictures.isEmpty());
        for (const QString &src : pictures) {
            // The browser finds each picture from where the page lies, as it does when it
            // lays the page out.
            const QVariant data =
                window.browser->loadResource(QTextDocument::ImageResource, QUrl(src));
            QVERIFY2(data.isValid(), qPrintable(src));
            QImage image;
            QVERIFY2(image.loadFromData(data.toByteArray()), qPrintable(src));
            QCOMPARE(image.size(), QSize(480, 640));
        }
    }
};

QTEST_MAIN(TestHelpPage)
#include "tst_helppage.moc"
