// The defaults a new user starts with: the shipped configuration and template journey, and
// the first-start preparation that puts them in place.

#include "coretestutil.h"
#include "stdoutcapture.h"

#include "data/wayferndata.h"
#include "storage/wayfernio.h"
#include "storage/wayferniocfg.h"

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {
const QString share = QStringLiteral(WAYFERN_SHARE_DIR);

// A user whose home is `home` and who has set neither directory: the preparation's defaults.
QProcessEnvironment freshUser(const QTemporaryDir &home)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("HOME"), home.path());
    env.remove(QStringLiteral("WAYFERNCFG"));
    env.remove(QStringLiteral("WAYFERN_DATA"));
    return env;
}
} // namespace

class TestShipped : public QObject
{
    Q_OBJECT

private slots:
    void templateReadsWithoutComplaint();
    void templateIsWrittenAsItStands();
    void templateHasCapitalisedCostTypes();
    void templateStartsJourneysWithSharingOn();
    void configurationReadsWithoutComplaint();
    void firstStartPreparesConfigurationAndJourneys();
    void laterStartKeepsUsersFiles();
    void preparationTakesTheInstalledPlacesItIsGiven();
    void preparationRefusesAnOptionWithoutValue();
};

void TestShipped::templateReadsWithoutComplaint()
{
    WayFernData doc;
    WayfernIO io(&doc);
    StdoutCapture out;
    QCOMPARE(io.ReadFile(share + QStringLiteral("/template.wfn")), 0);
    QCOMPARE(out.text(), QString());
    QCOMPARE(doc.basecurrency, QStringLiteral("EUR"));
    QCOMPARE(doc.costs.count(), 0);
    QCOMPARE(doc.users.count(), 0);
    QVERIFY(doc.currencies.count() >= 8);
    const CurrData *eur = doc.findCurrency(QStringLiteral("EUR"));
    QVERIFY(eur);
    QCOMPARE(eur->factorvalue, 1.0);
    QCOMPARE(eur->type, eur->fix);
    for (const CurrData *curr : doc.currencies) {
        QVERIFY(curr->factorvalue > 0);
        QVERIFY(!curr->fullname.isEmpty());
        if (curr != eur)
            QVERIFY(curr->isFloating());
    }
    const TTypeData *hotel = doc.findTipType(QStringLiteral("Hotel"));
    QVERIFY(hotel);
    QCOMPARE(hotel->customs.count(), 2);
    QCOMPARE(hotel->customs.at(0)->text, QStringLiteral("Rooms"));
    QVERIFY(doc.findTipType(QStringLiteral("Restaurant")));
    QVERIFY(doc.findTipType(QStringLiteral("Camping")));
    QVERIFY(doc.qtypes.count() >= 3);
}

void TestShipped::templateIsWrittenAsItStands()
{
    const QByteArray original = readBytes(share + QStringLiteral("/template.wfn"));
    WayFernData doc;
    WayfernIO io(&doc);
    QCOMPARE(io.ReadFile(share + QStringLiteral("/template.wfn")), 0);
    QTemporaryDir dir;
    const QString out = dir.filePath(QStringLiteral("template.wfn"));
    QCOMPARE(io.WriteFile(out), 0);
    QList<QByteArray> want = undatedLines(original);
    QList<QByteArray> got = undatedLines(readBytes(out));
    QCOMPARE(got.size(), want.size());
    QCOMPARE(got.mid(0, got.size() - 2), want.mid(0, want.size() - 2));
}

void TestShipped::templateHasCapitalisedCostTypes()
{
    WayFernData doc;
    WayfernIO io(&doc);
    QCOMPARE(io.ReadFile(share + QStringLiteral("/template.wfn")), 0);
    QVERIFY(doc.ctypes.count() >= 6);
    // Every cost type shows a letter in the cost list.
    for (const CTypeData *row : doc.ctypes)
        QVERIFY2(*doc.firstCapital(row->type) != 0, qPrintable(row->type));
}

void TestShipped::templateStartsJourneysWithSharingOn()
{
    // Most journeys are made by several travellers: a new one shares its costs from the start.
    WayFernData doc;
    WayfernIO io(&doc);
    QCOMPARE(io.ReadFile(share + QStringLiteral("/template.wfn")), 0);
    QVERIFY(doc.userflag);
}

void TestShipped::configurationReadsWithoutComplaint()
{
    WayFernData doc;
    WayfernIOCfg io(&doc);
    StdoutCapture out;
    QCOMPARE(io.ReadFile(share, QStringLiteral("wayfern.cfg")), 0);
    QCOMPARE(out.text(), QString());
    QCOMPARE(doc.config.last, QStringLiteral("wayfern.last"));
    QCOMPARE(doc.config.template_, QStringLiteral("template.wfn"));
    QCOMPARE(doc.config.syncfile, QStringLiteral("rate.html"));
    QCOMPARE(doc.config.server, QStringLiteral("https://api.frankfurter.dev"));
    QCOMPARE(doc.config.fromprefix, QStringLiteral("/v1/latest?from="));
    QCOMPARE(doc.config.toprefix, QStringLiteral("&to="));
    QVERIFY(!doc.config.postfix.isNull());
    QVERIFY(doc.config.postfix.isEmpty());
    QCOMPARE(doc.config.catalogue, QStringLiteral("https://api.frankfurter.dev/v1/currencies"));
}

void TestShipped::firstStartPreparesConfigurationAndJourneys()
{
    QTemporaryDir home;
    QProcess prepare;
    QProcessEnvironment env = freshUser(home);
    env.insert(QStringLiteral("WAYFERN_HELPPROG"), QStringLiteral("/usr/bin/true"));
    prepare.setProcessEnvironment(env);
    prepare.start(QStringLiteral("bash"), {share + QStringLiteral("/../scripts/prepare-user.sh")});
    QVERIFY(prepare.waitForFinished(30000));
    QCOMPARE(prepare.exitCode(), 0);

    const QString cfgdir = home.filePath(QStringLiteral(".config/wayfern"));
    const QString datadir = home.filePath(QStringLiteral("wayfern"));
    WayFernData doc;
    WayfernIOCfg cfg(&doc);
    StdoutCapture out;
    QCOMPARE(cfg.ReadFile(cfgdir, QStringLiteral("wayfern.cfg")), 0);
    QCOMPARE(doc.config.datapath, datadir);
    QCOMPARE(doc.config.helpprog, QStringLiteral("/usr/bin/true"));
    QVERIFY(QFileInfo(doc.config.helpfile).isAbsolute());
    WayfernIO io(&doc);
    QCOMPARE(io.ReadFile(doc.config.datapath + u'/' + doc.config.template_), 0);
    QCOMPARE(out.text(), QString());
    QCOMPARE(doc.basecurrency, QStringLiteral("EUR"));
}

void TestShipped::laterStartKeepsUsersFiles()
{
    QTemporaryDir home;
    QProcessEnvironment env = freshUser(home);
    const auto run = [&] {
        QProcess prepare;
        prepare.setProcessEnvironment(env);
        prepare.start(QStringLiteral("bash"),
                      {share + QStringLiteral("/../scripts/prepare-user.sh")});
        return prepare.waitForFinished(30000) && prepare.exitCode() == 0;
    };
    QVERIFY(run());
    const QString cfgfile = home.filePath(QStringLiteral(".config/wayfern/wayfern.cfg"));
    const QString tmpl = home.filePath(QStringLiteral("wayfern/template.wfn"));
    QVERIFY(writeBytes(cfgfile, "[Header]\nLAST=mine;\n\n[HTMLSYNC]\n\n#\n"));
    QVERIFY(writeBytes(tmpl, "mine"));
    QVERIFY(run());
    QCOMPARE(readBytes(cfgfile), QByteArray("[Header]\nLAST=mine;\n\n[HTMLSYNC]\n\n#\n"));
    QCOMPARE(readBytes(tmpl), QByteArray("mine"));
}

void TestShipped::preparationTakesTheInstalledPlacesItIsGiven()
{
    // An installed launcher names defaults, help viewer and help page of its own; they win
    // over the source tree's and over a help viewer from the environment.
    QTemporaryDir home;
    QTemporaryDir defaults;
    QVERIFY(QFile::copy(share + QStringLiteral("/wayfern.cfg"),
                        defaults.filePath(QStringLiteral("wayfern.cfg"))));
    QVERIFY(writeBytes(defaults.filePath(QStringLiteral("template.wfn")), "installed"));
    const QString viewer = QStringLiteral("/opt/way fern/libexec/wayfern-help");
    const QString page = QStringLiteral("/opt/way fern/share/help/wayfern.html");
    QProcess prepare;
    QProcessEnvironment env = freshUser(home);
    env.insert(QStringLiteral("WAYFERN_HELPPROG"), QStringLiteral("/usr/bin/true"));
    prepare.setProcessEnvironment(env);
    prepare.start(QStringLiteral("bash"),
                  {share + QStringLiteral("/../scripts/prepare-user.sh"),
                   QStringLiteral("--defaults"), defaults.path(), QStringLiteral("--help-prog"),
                   viewer, QStringLiteral("--help-file"), page});
    QVERIFY(prepare.waitForFinished(30000));
    QCOMPARE(prepare.exitCode(), 0);

    WayFernData doc;
    WayfernIOCfg cfg(&doc);
    StdoutCapture out;
    QCOMPARE(cfg.ReadFile(home.filePath(QStringLiteral(".config/wayfern")),
                          QStringLiteral("wayfern.cfg")),
             0);
    QCOMPARE(out.text(), QString());
    QCOMPARE(doc.config.datapath, home.filePath(QStringLiteral("wayfern")));
    QCOMPARE(doc.config.helpprog, viewer);
    QCOMPARE(doc.config.helpfile, page);
    QCOMPARE(readBytes(home.filePath(QStringLiteral("wayfern/template.wfn"))),
             QByteArray("installed"));
}

void TestShipped::preparationRefusesAnOptionWithoutValue()
{
    QTemporaryDir home;
    QProcess prepare;
    QProcessEnvironment env = freshUser(home);
    prepare.setProcessEnvironment(env);
    prepare.start(
        QStringLiteral("bash"),
        {share + QStringLiteral("/../scripts/prepare-user.sh"), QStringLiteral("--defaults")});
    QVERIFY(prepare.waitForFinished(30000));
    QCOMPARE(prepare.exitCode(), 2);
    QVERIFY(!QFileInfo::exists(home.filePath(QStringLiteral(".config/wayfern/wayfern.cfg"))));
}

QTEST_GUILESS_MAIN(TestShipped)
#include "tst_shipped.moc"
