#pragma once

#include <QWidget>

class QKeyEvent;
class QPushButton;
class QTextBrowser;

// The help page in a window of its own with a button that closes it: the viewer program
// shows it, and so does the main window where no second program can show a window.
class HelpWindow : public QWidget
{
    Q_OBJECT

public:
    explicit HelpWindow(QWidget *parent = nullptr);

    // Shows `page` (an HTML file) or, when it is missing, a line that says so.
    void showPage(const QString &page);

    QTextBrowser *browser;
    QPushButton *closeButton;

protected:
    void keyPressEvent(QKeyEvent *event) override;
};
