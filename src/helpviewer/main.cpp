#include "helpviewer/helppage.h"
#include "helpviewer/helpwindow.h"
#include "shell/translationloader.h"

#include <QApplication>
#include <QLocale>

#include <cstdio>

// A small window that shows the program's help page: the page is the only argument. It
// speaks the language of the program, and shows the page's translation where one stands
// beside it.
int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 2) {
        printf("\nwayfern-help - usage: wayfern-help <file.html>\n");
        fflush(stdout);
        return 1;
    }
    const QLocale locale = QLocale::system();
    (void)TranslationLoader::install(&app, locale);
    HelpWindow window;
    window.showPage(HelpPage::forLocale(args.at(1), locale));
    window.show();
    return app.exec();
}
