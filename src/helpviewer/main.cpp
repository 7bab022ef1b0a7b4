#include "helpviewer/helpwindow.h"

#include <QApplication>

#include <cstdio>

// A small window that shows the program's help page: the page is the only argument.
int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 2) {
        printf("\nwayfern-help - usage: wayfern-help <file.html>\n");
        fflush(stdout);
        return 1;
    }
    HelpWindow window;
    window.showPage(args.at(1));
    window.show();
    return app.exec();
}
