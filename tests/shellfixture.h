#pragma once

// A user's directories for one test of the main window: a configuration directory with
// "wayfern.cfg" (WAYFERNCFG points at it) and a journey directory with the template and
// the fixture journeys of tests/data/shell.

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

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>

// The watchers still waiting; a test ends them in its cleanup so that none outlives it.
inline QList<QPointer<QTimer>> &modalWatchers()
{
    static QList<QPointer<QTimer>> watchers;
    return watchers;
}

inline void cancelModalWatchers()
{
    for (const QPointer<QTimer> &timer : modalWatchers())
        delete timer.data();
    modalWatchers().clear();
}

// Runs `act` on the next modal widget as soon as it shows (within five seconds).
inline void whenModal(std::function<void(QWidget *)> act)
{
    auto *timer = new QTimer;
    modalWatchers().append(timer);
    auto ticks = std::make_shared<int>(500);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, act, ticks] {
        QWidget *w = QApplication::activeModalWidget();
        if (w && w->isVisible()) {
            timer->stop();
            timer->deleteLater();
            act(w);
        } else if (--*ticks <= 0) {
            timer->stop();
            timer->deleteLater();
        }
    });
    timer->start(10);
}

struct SeenBox
{
    bool shown = false;
    QString title;
    QString text;
};

// Answers the next message box with `button` and notes what it said.
inline std::shared_ptr<SeenBox> answerMessageBox(QMessageBox::StandardButton button,
                                                 std::function<void()> then = {})
{
    auto seen = std::make_shared<SeenBox>();
    whenModal([seen, button, then](QWidget *w) {
        auto *box = qobject_cast<QMessageBox *>(w);
        if (!box)
            return;
        seen->shown = true;
        seen->title = box->windowTitle();
        seen->text = box->text();
        if (then)
            then();
        box->button(button)->click();
    });
    return seen;
}

// Types `name` into the next file dialog and confirms it; an empty name cancels.
inline std::shared_ptr<bool> chooseFile(const QString &name)
{
    auto shown = std::make_shared<bool>(false);
    whenModal([shown, name](QWidget *w) {
        *shown = true;
        if (name.isEmpty()) {
            if (auto *cancel = w->findChild<QAbstractButton *>(QStringLiteral("CancelButton")))
                cancel->click();
            return;
        }
        w->findChild<QLineEdit *>(QStringLiteral("FNameLineEdit"))->setText(name);
        w->findChild<QAbstractButton *>(QStringLiteral("OkButton"))->click();
    });
    return shown;
}
