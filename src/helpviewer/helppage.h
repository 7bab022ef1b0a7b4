#pragma once

#include <QLocale>
#include <QString>

// Which help page to show: the configuration names one page, and a translation of it may
// stand beside it with the language in its name ("wayfern.html", "wayfern_de.html").
namespace HelpPage {

// The page for `locale`: NAME_<language>.html beside `page` when that file exists, else
// `page` itself. English is the configured page's own language, so it is never looked for.
QString forLocale(const QString &page, const QLocale &locale = QLocale());

} // namespace HelpPage
