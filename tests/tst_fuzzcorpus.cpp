// Every input of the fuzz corpora (fuzz/corpus/<target>/) and of the inputs that once found
// something (fuzz/regressions/<target>/) through the checks that the fuzz targets run, built
// with the normal compiler: they stay tested without a fuzzer.
#include "checks.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <unistd.h>

#include <cstdio>
#include <fcntl.h>

namespace {

const char *const targets[] = {"journey", "config", "laststate", "recordtools"};

// The readers print a line for each unknown key; thousands of inputs would bury the log.
class QuietStdout
{
public:
    QuietStdout()
    {
        fflush(stdout);
        saved = dup(STDOUT_FILENO);
        const int null = open("/dev/null", O_WRONLY);
        dup2(null, STDOUT_FILENO);
        close(null);
    }
    ~QuietStdout()
    {
        fflush(stdout);
        dup2(saved, STDOUT_FILENO);
        close(saved);
    }

private:
    int saved = -1;
};

} // namespace

class TestFuzzCorpus : public QObject
{
    Q_OBJECT

private slots:
    void corpusHoldsInputsForEveryTarget_data();
    void corpusHoldsInputsForEveryTarget();
    void everyCorpusInputKeepsThePromises_data();
    void everyCorpusInputKeepsThePromises();
};

void TestFuzzCorpus::corpusHoldsInputsForEveryTarget_data()
{
    QTest::addColumn<QString>("target");
    for (const char *target : targets)
        QTest::newRow(target) << QString::fromLatin1(target);
}

void TestFuzzCorpus::corpusHoldsInputsForEveryTarget()
{
    QFETCH(QString, target);
    QVERIFY(fuzzCheckByName(target.toLatin1().constData()) != nullptr);
    const QDir dir(QStringLiteral(WAYFERN_FUZZ_CORPUS "/") + target);
    QVERIFY2(dir.exists(), qPrintable(dir.path()));
    QVERIFY(!dir.entryList(QDir::Files).isEmpty());
}

void TestFuzzCorpus::everyCorpusInputKeepsThePromises_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("path");
    for (const char *folder : {WAYFERN_FUZZ_CORPUS, WAYFERN_FUZZ_REGRESSIONS}) {
        for (const char *target : targets) {
            const QDir dir(QLatin1String(folder) + u'/' + QLatin1String(target));
            for (const QString &name : dir.entryList(QDir::Files, QDir::Name))
                QTest::newRow(qPrintable(QDir(QLatin1String(folder)).dirName() + u'/'
                                         + dir.dirName() + u'/' + name))
                    << QString::fromLatin1(target) << dir.filePath(name);
        }
    }
}

void TestFuzzCorpus::everyCorpusInputKeepsThePromises()
{
    QFETCH(QString, target);
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    const FuzzCheck check = fuzzCheckByName(target.toLatin1().constData());
    QVERIFY(check);
    const char *failure;
    {
        QuietStdout quiet;
        failure = check(reinterpret_cast<const uint8_t *>(bytes.constData()), size_t(bytes.size()));
    }
    QVERIFY2(!failure, failure);
}

QTEST_GUILESS_MAIN(TestFuzzCorpus)
#include "tst_fuzzcorpus.moc"
