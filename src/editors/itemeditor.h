#pragma once

#include "data/wayferndata.h"
#include "dialogs/calenderedit.h"
#include "dialogs/savechangesquestion.h"
#include "dialogs/scqtwidgetutil.h"
#include "editors/editorkeys.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QShowEvent>
#include <QString>
#include <QToolButton>
#include <QTreeWidget>
#include <QTreeWidgetItem>

// What a row of an item-and-content editor lets the user do, and so which of the four edit
// widgets it switches on.
enum class RowKind {
    PlainText,     // typed into the line
    DateAndTyping, // typed, or taken from the calendar
    DateOnly,      // taken from the calendar only
    Choice,        // chosen in the combo box
    ShownOnly      // nothing to edit
};

// The behaviour that the record editors share. Each shows its record as rows "item" and
// "content" (flat, or grouped under closed group rows); the selected row's content moves
// into the edit line, the combo box or the calendar, and what is typed goes straight back
// into the row. Nothing reaches the record before OK, or Yes in the question on Cancel.
//
// A logic class derives from ItemEditor<ItsForm>, fills its rows, and supplies the steps
// that are its own: readList (rows into the working copy), checkChanges (working copy
// against the record, setting `modified`), storeChanges (working copy into the record,
// with its extras) and cancelCaption (tr("Cancel") in its own context).
template <typename Form>
class ItemEditor : public Form
{
public:
    ItemEditor(QWidget *parent, const char *name, bool modal, WayFernData *doc)
        : Form(parent, name, modal)
    {
        // Callers always pass a name: the form's caption stays, the name is the object's.
        if (!name)
            this->setWindowTitle(QString());
        document = doc;
        // Rows keep the order in which they are made.
        this->ListView->setSortingEnabled(false);
        this->ListView->setAllColumnsShowFocus(true);
        // The creator hides the dialog at once; it is built once and reused.
        this->showMaximized();
        modified = false;
        this->ListView->setFocusProxy(this->LineEdit);
        setUpKeys();
    }

    void slotClearLine() override
    {
        if (this->LineEdit)
            this->LineEdit->setText(QString());
    }

    void slotTextChanged(const QString &text) override
    {
        if (selected)
            selected->setText(1, text);
    }

    void slotOK() override
    {
        // A refused entry keeps the dialog as it is: nothing read, nothing stored.
        if (!inputAccepted())
            return;
        readAndCheck();
        if (modified)
            storeChanges(false);
        this->accept();
    }

    // The question asks whether to save, not whether to leave: it comes only when something
    // differs, and its Cancel keeps the dialog open with all its edits.
    void slotCancel() override
    {
        const bool modifiedBefore = modified;
        readAndCheck();
        if (!modified) {
            this->reject();
            return;
        }
        switch (askSaveChanges(this, cancelCaption())) {
        case QMessageBox::Yes:
            // Yes stores, so it is refused like OK, and the dialog stays as it was.
            if (!inputAccepted()) {
                modified = modifiedBefore;
                break;
            }
            storeChanges(true);
            this->accept();
            break;
        case QMessageBox::No:
            modified = false;
            this->reject();
            break;
        default:
            break;
        }
    }

protected:
    // Rows into the working copy.
    virtual void readList() = 0;
    // Compares the working copy with the record; a difference sets `modified`, nothing
    // clears it.
    virtual void checkChanges() = 0;
    // What OK and Cancel run before they decide; an editor may put a question in between.
    virtual void readAndCheck()
    {
        readList();
        checkChanges();
    }
    // The working copy into the record, the document marked modified, the editor's extras,
    // `modified` cleared. `fromQuestion` tells a Yes in the question on Cancel from OK.
    virtual void storeChanges(bool fromQuestion) = 0;
    // tr("Cancel"), translated in the logic class's context.
    virtual QString cancelCaption() const = 0;
    // Whether what the rows hold may be stored. An editor with amounts or dates checks them
    // here and shows the refusal box (dialogs/refusal.h) before it answers false.
    virtual bool inputAccepted() { return true; }

    // Closing the window is Cancel; if the question keeps the dialog, the close is refused.
    void closeEvent(QCloseEvent *event) override
    {
        slotCancel();
        if (this->isVisible())
            event->ignore();
        else
            event->accept();
    }

    // Every opening starts in the rows.
    void showEvent(QShowEvent *event) override
    {
        Form::showEvent(event);
        this->ListView->setFocus(Qt::OtherFocusReason);
    }

    // After loading no row is selected and nothing can be edited until one is.
    void disableEditWidgets()
    {
        this->ComboBox->setEnabled(false);
        this->ToolButton->setEnabled(false);
        this->LineEdit->setEnabled(false);
        this->ClearButton->setEnabled(false);
        this->LineEdit->clear();
    }

    // A group row (one with children) can't be edited: the widgets go off and the row is
    // deselected, while `selected` keeps the row chosen before. False for it and for null.
    bool isEditableSelection(QTreeWidgetItem *item)
    {
        if (!item)
            return false;
        if (item->childCount() > 0) {
            this->ClearButton->setEnabled(false);
            this->LineEdit->setEnabled(false);
            this->ComboBox->setEnabled(false);
            this->ToolButton->setEnabled(false);
            item->setSelected(false);
            return false;
        }
        return true;
    }

    void enableFor(RowKind kind)
    {
        const bool typed = kind == RowKind::PlainText || kind == RowKind::DateAndTyping;
        this->LineEdit->setEnabled(typed);
        this->ClearButton->setEnabled(typed);
        this->ComboBox->setEnabled(kind == RowKind::Choice);
        this->ToolButton->setEnabled(kind == RowKind::DateAndTyping || kind == RowKind::DateOnly);
    }

    // Makes `item` the edited row. `selected` is set first: putting the row's text into the
    // line runs slotTextChanged for that row.
    void showRow(QTreeWidgetItem *item, RowKind kind)
    {
        selected = item;
        enableFor(kind);
        this->LineEdit->setText(item->text(1));
    }

    // The letter that stands for a cost or tip type in the lists: its first capital.
    QString typeLetter(const QString &type) const
    {
        const char c = *document->firstCapital(type);
        return c ? QString(QLatin1Char(c)) : QStringLiteral("");
    }

    // The date row's calendar, starting at `recordDate`. A chosen date goes into the line
    // and into the row, even where the line is off for typing. `chosen`, when given, gets
    // the date first. False when the selected row is not the date row or nothing was chosen.
    bool pickDate(const QString &dateLabel, calenderEdit *calendar, const QString &recordDate,
                  QString *chosen = nullptr)
    {
        if (!selected || selected->text(0) != dateLabel || !calendar)
            return false;
        calendar->setDate(recordDate);
        calendar->exec();
        calendar->hide();
        if (calendar->result() != QDialog::Accepted)
            return false;
        const QString date = calendar->dateText();
        if (chosen)
            *chosen = date;
        this->LineEdit->setText(date);
        this->slotTextChanged(date);
        return true;
    }

private:
    // The keyboard reaches everything: Tab goes from the rows to the line or the combo box,
    // the calendar button, OK and Cancel; Return in the line keeps what was typed and goes
    // on to the next row; Ctrl+Return is OK, Escape is Cancel with its question.
    void setUpKeys()
    {
        takeTabFocus({this->ToolButton, this->OkButton, this->CancelButton});
        // The line empties by its own keys; a stop of its own would only lie in the way.
        this->ClearButton->setFocusPolicy(Qt::NoFocus);
        chainTabOrder({this->ListView, this->LineEdit, this->ComboBox, this->ToolButton,
                       this->OkButton, this->CancelButton});
        rowKeys = new RowKeys(this->ListView, this->LineEdit, this);
        QObject::connect(this->LineEdit, &QLineEdit::returnPressed, this,
                         [this] { rowKeys->selectNextRow(); });
        addOkCancelKeys(
            this, [this] { this->slotOK(); }, [this] { this->slotCancel(); });
    }

public:
    RowKeys *rowKeys = nullptr; // a child of the dialog
    ScQtWidgetUtil util;
    QTreeWidgetItem *selected = nullptr; // the row last selected; not owned
    bool modified = false;
    WayFernData *document = nullptr; // not owned
};
