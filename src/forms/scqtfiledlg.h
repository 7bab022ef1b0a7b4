#pragma once

#include "ui_scqtfiledlg.h"

#include <QDialog>

class QTreeWidgetItem;

// The form of the program's own file dialog: builds the widgets and declares the slots
// that ScQtFileEditDlg fills in.
class ScQtFileDlg : public QDialog, public Ui::ScQtFileDlg
{
    Q_OBJECT

public:
    explicit ScQtFileDlg(QWidget *parent = nullptr, const char *name = nullptr, bool modal = false,
                         Qt::WindowFlags fl = {});
    ~ScQtFileDlg() override;

public slots:
    virtual void slotCancel();
    virtual void slotDirComboBoxChanged(int);
    virtual void slotDoubleClicked(QTreeWidgetItem *);
    virtual void slotFileTextChanged(const QString &);
    virtual void slotMkDir();
    virtual void slotOK();
    virtual void slotSelectionChanged(QTreeWidgetItem *);
    virtual void slotTypeComboBoxChanged(int);
};
