#include "helpviewer/helpwindow.h"

#include <QFileInfo>
#include <QKeyEvent>
#include <QPushButton>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

HelpWindow::HelpWindow(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("helpWindow"));
    setWindowTitle(tr("Wayfern help"));
    browser = new QTextBrowser(this);
    browser->setObjectName(QStringLiteral("helpBrowser"));
    browser->setOpenExternalLinks(false);
    closeButton = new QPushButton(tr("Close"), this);
    closeButton->setObjectName(QStringLiteral("helpClose"));
    connect(closeButton, &QPushButton::clicked, this, &QWidget::close);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->addWidget(browser);
    layout->addWidget(closeButton);
    resize(480, 600);
}

void HelpWindow::showPage(const QString &page)
{
    const QFileInfo info(page);
    if (!info.exists()) {
        browser->setPlainText(tr("The help page %1 was not found.").arg(page));
        return;
    }
    browser->setSearchPaths({info.absolutePath()});
    browser->setSource(QUrl::fromLocalFile(info.absoluteFilePath()));
}

void HelpWindow::keyPressEvent(QKeyEvent *event)
{
    // Without a window frame (a screen served over VNC) the keyboard closes it too.
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}
