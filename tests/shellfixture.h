#pragma once

// A user's directories for one test of the main window: a configuration directory with
// "wayfern.cfg" (WAYFERNCFG points at it) and a journey directory with the template and
// the fixture journeys of tests/data/shell.

#include "modalhelper.h"

#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <QTest>

#include <cstdlib>

class ShellFixture
{
public:
    explicit ShellFixture(const QStringList &journeys = {},
                          const QString &helpProg = QStringLiteral("/bin/true"),
                          const QString &helpFile = QStringLiteral("help.html"),
                          bool withTemplate = true)
    {
        QDir().mkpath(cfgDir());
        QDir().mkpath(dataDir());
        writeConfig(helpProg, helpFile, withTemplate);
        if (withTemplate)
            copyJourney(QStringLiteral("template.wfn"));
        for (const QString &name : journeys)
            copyJourney(name);
        qputenv("WAYFERNCFG", cfgDir().toLocal8Bit());
    }

    QString cfgDir() const { return dir.path() + QStringLiteral("/cfg"); }
    QString dataDir() const { return dir.path() + QStringLiteral("/data"); }
    QString dataFile(const QString &name) const { return dataDir() + u'/' + name; }
    QString lastFile() const { return dataFile(QStringLiteral("wayfern.last")); }

    static QString fixture(const QString &name)
    {
        return QStringLiteral(WAYFERN_TEST_DATA "/shell/") + name;
    }

    bool copyJourney(const QString &name, const QString &as = QString()) const
    {
        const QString target = dataFile(as.isEmpty() ? name : as);
        QFile::remove(target);
        return QFile::copy(fixture(name), target)
            && QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
    }

    // The last-state file as the program writes it, naming `journey`.
    void writeLast(const QString &journey) const
    {
        QFile f(lastFile());
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("<?wayfern version=\"0.1\" type=\"last\"?>\n\n[Header]\nLASTFILE=");
        f.write(journey.toLatin1());
        f.write(";\n\n##EOF\n");
    }

    // The journey named by the last-state file, or "" when there is none.
    QString lastNamed() const
    {
        QFile f(lastFile());
        if (!f.open(QIODevice::ReadOnly))
            return QString();
        const QString text = QString::fromLatin1(f.readAll());
        const int at = text.indexOf(QStringLiteral("LASTFILE="));
        if (at < 0)
            return QString();
        const int end = text.indexOf(u';', at);
        return text.mid(at + 9, end - at - 9);
    }

    QTemporaryDir dir;

private:
    void writeConfig(const QString &helpProg, const QString &helpFile, bool withTemplate) const
    {
        QFile f(cfgDir() + QStringLiteral("/wayfern.cfg"));
        QVERIFY(f.open(QIODevice::WriteOnly));
        QByteArray text = "<?wayfern version=\"0.1\" type=\"config\"?>\n\n[Header]\n";
        text += "DATA-PATH=" + dataDir().toLocal8Bit() + ";\n";
        text += "LAST=wayfern.last;\n";
        if (withTemplate)
            text += "TEMPLATE=template.wfn;\n";
        text += "HELPPROG=" + helpProg.toLocal8Bit() + ";\n";
        text += "HELPFILE=" + helpFile.toLocal8Bit() + ";\n";
        text += "\n[HTMLSYNC]\nSYNCFILE=sync.html;\nSERVER=http://127.0.0.1/;\n"
                "FROMPREFIX=from=;\nTOPREFIX=&to=;\nPOSTFIX=;\n\n##EOF\n";
        f.write(text);
    }
};
