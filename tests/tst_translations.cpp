#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QXmlStreamReader>

// Every message of the translation files is translated, and each translation keeps what the
// program relies on: the placeholders, the one accelerator, the line breaks and the blanks
// at either end (texts are joined to others at run time). The file checked is
// WAYFERN_TS_FILE when set (a freshly updated copy), else the German file of the tree.

namespace {

struct Message
{
    QString context;
    QString source;
    QString translation;
    QString type; // "unfinished", "vanished", "obsolete" or empty
};

QList<Message> readMessages(const QString &path, QString *error)
{
    QList<Message> messages;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("cannot open ") + path;
        return messages;
    }
    QXmlStreamReader xml(&file);
    QString context;
    Message current;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        const auto name = xml.name();
        if (name == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (name == QLatin1String("message")) {
            current = Message{context, QString(), QString(), QString()};
        } else if (name == QLatin1String("source")) {
            current.source = xml.readElementText();
        } else if (name == QLatin1String("translation")) {
            current.type = xml.attributes().value(QLatin1String("type")).toString();
            current.translation = xml.readElementText();
            messages.append(current);
        }
    }
    if (xml.hasError())
        *error = xml.errorString();
    return messages;
}

QStringList placeholders(const QString &text)
{
    static const QRegularExpression marker(QStringLiteral("%L?\\d+"));
    QStringList found;
    for (auto it = marker.globalMatch(text); it.hasNext();)
        found.append(it.next().captured());
    found.sort();
    return found;
}

// Ampersands that mark a key, not a literal "&&".
int accelerators(const QString &text)
{
    return text.count(u'&') - 2 * text.count(QStringLiteral("&&"));
}

QString leading(const QString &text)
{
    int i = 0;
    while (i < text.size() && text.at(i).isSpace())
        ++i;
    return text.left(i);
}

QString trailing(const QString &text)
{
    int i = text.size();
    while (i > 0 && text.at(i - 1).isSpace())
        --i;
    return text.mid(i);
}

QString tsFile()
{
    const QByteArray given = qgetenv("WAYFERN_TS_FILE");
    return given.isEmpty() ? QStringLiteral(WAYFERN_TRANSLATIONS_SOURCE "/wayfern_de.ts")
                           : QString::fromLocal8Bit(given);
}

} // namespace

class TestTranslations : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QString error;
        messages = readMessages(tsFile(), &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QVERIFY2(!messages.isEmpty(), qPrintable(tsFile()));
    }

    void everyMessageIsTranslated()
    {
        QStringList open;
        for (const Message &m : messages)
            if (!m.type.isEmpty() || m.translation.trimmed().isEmpty())
                open << m.context + QStringLiteral(": ") + m.source
                        + (m.type.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(m.type));
        QVERIFY2(open.isEmpty(), qPrintable(open.join(u'\n')));
    }

    void translationsKeepPlaceholdersAcceleratorsLinesAndOuterBlanks()
    {
        QStringList wrong;
        for (const Message &m : messages) {
            QStringList why;
            if (placeholders(m.source) != placeholders(m.translation))
                why << QStringLiteral("placeholders");
            if (accelerators(m.source) != accelerators(m.translation))
                why << QStringLiteral("accelerator");
            if (m.source.count(u'\n') != m.translation.count(u'\n'))
                why << QStringLiteral("line breaks");
            if (leading(m.source) != leading(m.translation)
                || trailing(m.source) != trailing(m.translation))
                why << QStringLiteral("outer blanks");
            if (!why.isEmpty())
                wrong << QStringLiteral("%1: \"%2\" -> \"%3\": %4")
                             .arg(m.context, m.source, m.translation, why.join(u','));
        }
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
    }

    // Key sequences are read from the translated text: they stay as they are, so that the
    // same keys work in every language.
    void shortcutsStayTheSame()
    {
        static const QRegularExpression key(QStringLiteral("^(Ctrl|Alt|Shift|Meta)\\+\\S+$"));
        int seen = 0;
        for (const Message &m : messages) {
            if (!key.match(m.source).hasMatch())
                continue;
            ++seen;
            QCOMPARE(m.translation, m.source);
        }
        QVERIFY(seen > 0);
    }

private:
    QList<Message> messages;
};

QTEST_GUILESS_MAIN(TestTranslations)
#include "tst_translations.moc"
