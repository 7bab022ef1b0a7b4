#pragma once

#include <QObject>

#include <functional>
#include <initializer_list>

class QDialog;
class QLineEdit;
class QToolButton;
class QAbstractItemView;
class QTreeWidget;
class QWidget;

// Keys of the dialogs, so that nothing in them needs a pointer: Escape is Cancel with
// whatever question Cancel asks, Ctrl+Return is OK. They take the key before the focused
// widget does, and only while their dialog is the active window.
void addOkCancelKeys(QDialog *dialog, const std::function<void()> &ok,
                     const std::function<void()> &cancel);

// Tool buttons do not take focus from Tab by themselves.
void takeTabFocus(std::initializer_list<QToolButton *> buttons);

// Tab visits the widgets in this order; the last one leads back to the first.
void chainTabOrder(std::initializer_list<QWidget *> widgets);

// The Delete key in `list` does what the delete button does, question included, and nothing
// while the button is off.
void addDeleteKey(QAbstractItemView *list, QToolButton *deleteButton);

// The rows and the edit line of a dialog whose list hands its focus to the line. While the
// line is on, it is the list's focus proxy and holds the keys for both: Up, Down, Page Up
// and Page Down move between the rows. While the line is off in a shown dialog it cannot
// hold the focus, so the list takes it itself, and hands it to the line again when a row
// switches the line on.
class RowKeys : public QObject
{
    Q_OBJECT
public:
    RowKeys(QTreeWidget *list, QLineEdit *line, QObject *parent);

    // Selects the row below the current one as a tap would; a closed group row is opened
    // and its first row taken. False at the last row.
    bool selectNextRow();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void followLine();

    QTreeWidget *list;        // not owned
    QLineEdit *line;          // not owned
    bool lineWentOff = false; // the line had the focus when it was switched off
};
