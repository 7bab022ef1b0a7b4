#include "shell/translationloader.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QTranslator>

namespace TranslationLoader {

QStringList programDirs()
{
    const QString program = QCoreApplication::applicationDirPath();
    QStringList dirs{program + QStringLiteral("/translations")};
#ifdef WAYFERN_TRANSLATIONS_FROM_PROGRAM
    dirs.append(
        QDir::cleanPath(program + u'/' + QStringLiteral(WAYFERN_TRANSLATIONS_FROM_PROGRAM)));
#endif
#ifdef WAYFERN_TRANSLATIONS_DIR
    dirs.append(QStringLiteral(WAYFERN_TRANSLATIONS_DIR));
#endif
    dirs.append(QStringLiteral("."));
    return dirs;
}

namespace {

// Loads into a translator owned by `app` and installs it; returns the file, or an empty
// string when nothing was loaded.
template <class Load>
QString installOne(QCoreApplication *app, Load load)
{
    auto *translator = new QTranslator(app);
    if (!load(translator) || translator->isEmpty()) {
        delete translator;
        return QString();
    }
    QCoreApplication::installTranslator(translator);
    return translator->filePath();
}

} // namespace

QStringList install(QCoreApplication *app, const QLocale &locale, const QStringList &dirs)
{
    QStringList loaded;
    QString own;
    for (const QString &dir : dirs) {
        own = installOne(app, [&](QTranslator *t) {
            return t->load(locale, QStringLiteral("wayfern"), QStringLiteral("_"), dir);
        });
        if (!own.isEmpty())
            break;
    }
    if (own.isEmpty()) {
        own = installOne(app, [&](QTranslator *t) {
            return t->load(QStringLiteral("wayfern.") + locale.name(), QStringLiteral("."));
        });
    }
    if (!own.isEmpty())
        loaded.append(own);

    const QString qt = installOne(app, [&](QTranslator *t) {
        return t->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    });
    if (!qt.isEmpty())
        loaded.append(qt);
    return loaded;
}

} // namespace TranslationLoader
