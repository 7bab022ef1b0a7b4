#include "shell/translationloader.h"
#include "shell/wayfernapp.h"

#include <QApplication>
#include <QDir>
#include <QLocale>

#include <memory>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    // Without a translation file the built-in English texts stay: the result is not needed.
    (void)TranslationLoader::install(&app, QLocale::system());

    // A journey named on the command line (a file manager's "open with") opens instead of
    // the last one. A relative name counts from the directory the user started in: the
    // launchers change into the journey directory and say where they were started.
    const QString startDir = qEnvironmentVariable("WAYFERN_START_DIR", QDir::currentPath());
    QString journey;
    for (const QString &arg : QCoreApplication::arguments().mid(1))
        if (!arg.startsWith(QLatin1Char('-'))) {
            journey = QDir(startDir).absoluteFilePath(arg);
            break;
        }

    // The window never accepts a close: the run ends through the application, and the
    // window goes with main.
    auto window = std::make_unique<WayfernApp>(nullptr, nullptr, Qt::WindowFlags(), journey);
    window->show();
    window->showMaximized();
    QObject::connect(&app, &QGuiApplication::lastWindowClosed, &app, &QCoreApplication::quit);
    return app.exec();
}
