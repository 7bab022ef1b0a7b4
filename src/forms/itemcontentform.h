#pragma once

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QToolButton>
#include <QTreeWidget>

// The connections that every item-and-content form (costs, base settings, user, tip,
// currency) makes, in their designed order: clear, OK, cancel, the list's selection, typing,
// the select button. A form that offers the combo box connects it right after these.
// Each goes to the virtual slot, so that the logic class's override runs.
template <typename Form>
void connectItemContentForm(Form *form)
{
    QObject::connect(form->ClearButton, &QToolButton::clicked, form,
                     [form] { form->slotClearLine(); });
    QObject::connect(form->OkButton, &QToolButton::clicked, form, [form] { form->slotOK(); });
    QObject::connect(form->CancelButton, &QToolButton::clicked, form,
                     [form] { form->slotCancel(); });
    QObject::connect(form->ListView, &QTreeWidget::itemSelectionChanged, form, [form] {
        form->slotSelectionChanged(form->ListView->selectedItems().value(0));
    });
    QObject::connect(form->LineEdit, &QLineEdit::textChanged, form,
                     [form](const QString &text) { form->slotTextChanged(text); });
    QObject::connect(form->ToolButton, &QToolButton::clicked, form,
                     [form] { form->slotSelectButton(); });
}

// The combo box's choice, for the forms that have one in use.
template <typename Form>
void connectItemContentCombo(Form *form)
{
    QObject::connect(form->ComboBox, &QComboBox::textActivated, form,
                     [form](const QString &text) { form->slotComboChanged(text); });
}

// The labels are short and the contents long: the label column takes the width of its
// widest label and the content column the rest, so no label is cut on a small screen.
template <typename Form>
void sizeItemContentColumns(Form *form)
{
    form->ListView->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
}
