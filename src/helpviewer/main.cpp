#include <QApplication>
#include <QFileInfo>
#include <QTextBrowser>
#include <QUrl>

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
    const QString page = args.at(1);

    QTextBrowser browser;
    browser.setObjectName(QStringLiteral("helpBrowser"));
    browser.setWindowTitle(QStringLiteral("Wayfern help"));
    browser.setOpenExternalLinks(false);
    if (!QFileInfo::exists(page)) {
        browser.setPlainText(QStringLiteral("The help page %1 was not found.").arg(page));
    } else {
        const QFileInfo info(page);
        browser.setSearchPaths({info.absolutePath()});
        browser.setSource(QUrl::fromLocalFile(info.absoluteFilePath()));
    }
    browser.resize(480, 600);
    browser.show();
    return app.exec();
}
