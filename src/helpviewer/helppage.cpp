#include "helpviewer/helppage.h"

#include <QDir>
#include <QFileInfo>

QString HelpPage::forLocale(const QString &page, const QLocale &locale)
{
    if (page.isEmpty())
        return page;
    const QLocale::Language language = locale.language();
    if (language == QLocale::C || language == QLocale::AnyLanguage || language == QLocale::English)
        return page;
    // "de_DE" -> "de": the page serves every country of its language.
    const QString code = locale.name().section(QLatin1Char('_'), 0, 0);
    if (code.isEmpty())
        return page;
    const QFileInfo info(page);
    const QString suffix = info.suffix();
    QString name = info.completeBaseName() + QLatin1Char('_') + code;
    if (!suffix.isEmpty())
        name += QLatin1Char('.') + suffix;
    const QFileInfo translated(info.dir(), name);
    return translated.isFile() ? translated.filePath() : page;
}
