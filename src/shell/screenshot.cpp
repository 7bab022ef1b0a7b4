#include "shell/wayfernapp.h"
#include "shell/wayfernview.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>

// Shows the main window as a user starts it and saves a picture of each tab into the
// directory given as the only argument.
int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    if (argc < 2)
        return 1;
    const QString dir = QString::fromLocal8Bit(argv[1]);
    WayfernApp window;
    window.show();
    window.showMaximized();
    // Without a window manager nothing maximises: take the size of the screen.
    window.resize(window.screen()->availableSize());
    const char *names[] = {"main-overview.png", "main-costs.png", "main-tips.png"};
    QTimer::singleShot(500, &window, [&] {
        window.view->OverListView->expandAll();
        for (int i = 0; i < 3; ++i) {
            window.view->TabWidget2->setCurrentIndex(i);
            QApplication::processEvents();
            window.grab().save(dir + u'/' + QLatin1String(names[i]));
        }
        QCoreApplication::exit(0);
    });
    return app.exec();
}
