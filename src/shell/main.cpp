#include "shell/translationloader.h"
#include "shell/wayfernapp.h"

#include <QApplication>
#include <QLocale>

#include <memory>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    // Without a translation file the built-in English texts stay: the result is not needed.
    (void)TranslationLoader::install(&app, QLocale::system());

    // The window never accepts a close: the run ends through the application, and the
    // window goes with main.
    auto window = std::make_unique<WayfernApp>();
    window->show();
    window->showMaximized();
    QObject::connect(&app, &QGuiApplication::lastWindowClosed, &app, &QCoreApplication::quit);
    return app.exec();
}
