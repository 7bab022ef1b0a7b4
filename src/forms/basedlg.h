#pragma once

#include "ui_basedlg.h"

#include <QDialog>

class QTreeWidgetItem;

// The form of the base settings editor: the item-and-content rows; a tap on a row reaches
// slotClicked as well.
class BaseDlg : public QDialog, public Ui::BaseDlg
{
    Q_OBJECT

public:
    explicit BaseDlg(QWidget *parent = nullptr, const char *name = nullptr, bool modal = false,
                     Qt::WindowFlags fl = {});
    ~BaseDlg() override;

public slots:
    virtual void slotClicked(QTreeWidgetItem *, int);
    virtual void slotCancel();
    virtual void slotClearLine();
    virtual void slotComboChanged(const QString &);
    virtual void slotOK();
    virtual void slotSelectButton();
    virtual void slotSelectionChanged(QTreeWidgetItem *);
    virtual void slotTextChanged(const QString &);
};
