#pragma once

#include "forms/scqtfiledlg.h"

#include <QDir>
#include <QFileInfoList>
#include <QPixmap>
#include <QString>
#include <QTimer>

#include <memory>

// The logic of the program's own file dialog: one list of the current directory, combo
// boxes of recent directories and of filters, a line for the name.
class ScQtFileEditDlg : public ScQtFileDlg
{
    Q_OBJECT

public:
    ScQtFileEditDlg(QWidget *parent, const char *name, const QString &dir, const QString &filter);
    ~ScQtFileEditDlg() override;

    void setAppendExtension(bool on) { appendExtension = on; }
    void setFilterSpec(int spec) { filterSpec = spec; }
    void setUseNameFilter(bool on) { useNameFilter = on; }
    void setDirsFirst(bool on) { dirsFirst = on; }
    void setMkDirEnabled(bool on);

    // Lists dirName with filter and shows it.
    void refresh();
    // The directory joined with the file name, cleaned; the directory alone when no name.
    QString selectedPath() const;
    // The text behind the last "/" of the directory.
    QString dirBaseName() const;
    // Lists a directory: null when it can't be read. The list lives until the next call.
    const QFileInfoList *readDir(const QString &dir, const QString &filter);

public slots:
    void slotCancel() override;
    void slotDirComboBoxChanged(int index) override;
    void slotDoubleClicked(QTreeWidgetItem *item) override;
    void slotFileTextChanged(const QString &text) override;
    void slotMkDir() override;
    void slotOK() override;
    void slotSelectionChanged(QTreeWidgetItem *item) override;
    void slotTypeComboBoxChanged(int index) override;
    void slotShowDir();

private:
    void addDir(const QString &dir);
    void addType(const QString &type);
    static void addEntry(QComboBox *box, const QString &text);
    void changeDir(QTreeWidgetItem *item);

    QDir fileDir;
    QTimer showTimer;
    bool mkDirEnabled = false;
    bool dirsFirst = false;
    bool useNameFilter = false;
    int filterSpec = 7;
    QFileInfoList listing;
    const QFileInfoList *entries = nullptr; // &listing, or null
    bool busy = false;
    bool appendExtension = false;
    QString dirName;
    QString filter;
    QString fileName;
    QString typeDir;
    QString typeLink;
    QString typeFile;
    std::unique_ptr<QPixmap> filePixmap;
    std::unique_ptr<QPixmap> dirPixmap;
    std::unique_ptr<QPixmap> linkPixmap;
    std::unique_ptr<QPixmap> upPixmap;
};
