#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>

class QCoreApplication;

// The program's own texts come from wayfern_<language>.qm; Qt's standard buttons and
// dialogs from Qt's qtbase_<language>.qm. English needs neither: the built-in texts stay.
namespace TranslationLoader {

// Where wayfern_<language>.qm is looked for, first match wins: next to the program
// ("translations" beside the executable, where the build puts it), the installed place as
// seen from the installed program and as configured, and the current directory.
QStringList programDirs();

// Installs, for `locale`, the first wayfern_<language>.qm found in `dirs`, else the older
// name "wayfern.<locale name>" in the current directory, and Qt's own qtbase translation.
// The translators belong to `app`. Returns the paths of the files that were loaded.
QStringList install(QCoreApplication *app, const QLocale &locale,
                    const QStringList &dirs = programDirs());

} // namespace TranslationLoader
