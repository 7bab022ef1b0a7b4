#include "dialogs/scqtfileeditdlg.h"

#include <QFileInfo>
#include <QTreeWidgetItem>

#include <cstdio>

ScQtFileEditDlg::ScQtFileEditDlg(QWidget *parent, const char *name, const QString &dir,
                                 const QString &filter_)
    : ScQtFileDlg(parent, name, true), fileDir(dir, filter_, QDir::IgnoreCase, QDir::AllEntries)
{
    dirName = dir;
    filter = filter_;
    appendExtension = false;

    ListView->setAllColumnsShowFocus(true);
    ListView->headerItem()->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    // The list shows its rows rising by name, whatever order the directory delivers.
    ListView->setSortingEnabled(true);
    ListView->sortByColumn(0, Qt::AscendingOrder);

    filePixmap = std::make_unique<QPixmap>(QStringLiteral(":/pixmaps/file.xpm"));
    dirPixmap = std::make_unique<QPixmap>(QStringLiteral(":/pixmaps/dir.xpm"));
    linkPixmap = std::make_unique<QPixmap>(QStringLiteral(":/pixmaps/link.xpm"));
    upPixmap = std::make_unique<QPixmap>(QStringLiteral(":/pixmaps/up.xpm"));

    showMaximized();

    setMkDirEnabled(false);

    DirComboBox->clear();
    DirComboBox->insertItem(DirComboBox->count(), QStringLiteral("/"));
    if (!dirName.isEmpty())
        DirComboBox->insertItem(DirComboBox->count(), dirName);
    TypeComboBox->clear();
    TypeComboBox->insertItem(TypeComboBox->count(), QStringLiteral("*"));
    if (!filter.isEmpty())
        TypeComboBox->insertItem(TypeComboBox->count(), filter);

    typeDir = tr("dir");
    typeFile = tr("file");
    typeLink = tr("link");
    busy = false;

    showTimer.stop();
    showTimer.setSingleShot(true);
    connect(&showTimer, &QTimer::timeout, this, &ScQtFileEditDlg::slotShowDir);

    filterSpec = 7;
    useNameFilter = false;
    dirsFirst = false;
}

ScQtFileEditDlg::~ScQtFileEditDlg() = default;

void ScQtFileEditDlg::setMkDirEnabled(bool on)
{
    mkDirEnabled = on;
    MkDirButton->setEnabled(on);
}

void ScQtFileEditDlg::refresh()
{
    entries = readDir(dirName, filter);
    slotShowDir();
}

QString ScQtFileEditDlg::selectedPath() const
{
    return QDir::cleanPath(dirName + QLatin1Char('/') + fileName);
}

QString ScQtFileEditDlg::dirBaseName() const
{
    const int slash = dirName.lastIndexOf(QLatin1Char('/'));
    return slash >= 0 ? dirName.mid(slash + 1) : dirName;
}

const QFileInfoList *ScQtFileEditDlg::readDir(const QString &dir_, const QString &filter_)
{
    busy = true;
    const QString dir = dir_.isEmpty() ? QStringLiteral("/") : dir_;
    const QString nameFilter = filter_.isEmpty() ? QStringLiteral("*") : filter_;
    addDir(dir);
    addType(nameFilter);

    fileDir.setFilter(QDir::Filters(filterSpec));
    if (dirsFirst)
        fileDir.setSorting(QDir::DirsFirst);
    if (useNameFilter)
        fileDir.setNameFilters(QDir::nameFiltersFromString(nameFilter));
    fileDir.setPath(dir);

    // A directory that can't be opened has no listing at all, not an empty one.
    const QFileInfo info(dir);
    const bool readable = info.isDir() && info.isReadable();
    listing = readable ? fileDir.entryInfoList() : QFileInfoList();
    busy = false;
    return readable ? &listing : nullptr;
}

void ScQtFileEditDlg::addEntry(QComboBox *box, const QString &text)
{
    if (text.isEmpty())
        return;
    const int known = box->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (known >= 0) {
        box->setCurrentIndex(known);
        return;
    }
    // Entry 0, the root or the match-all filter, stays for ever; the oldest after it goes.
    if (box->count() > 7)
        box->removeItem(1);
    box->insertItem(box->count(), text);
    box->setCurrentIndex(box->count() - 1);
}

void ScQtFileEditDlg::addDir(const QString &dir)
{
    addEntry(DirComboBox, dir);
}

void ScQtFileEditDlg::addType(const QString &type)
{
    addEntry(TypeComboBox, type);
}

void ScQtFileEditDlg::slotShowDir()
{
    if (!entries)
        return;
    ListView->clear();

    QString type;
    QString size;
    QList<QTreeWidgetItem *> items;
    for (const QFileInfo &info : *entries) {
        const QString name = info.fileName();
        if (name.isNull())
            continue;
        if (info.isDir()) {
            type = typeDir;
            size = QStringLiteral("");
        } else if (info.isSymLink()) {
            type = typeLink;
            size = QStringLiteral("");
        } else if (info.isFile()) {
            type = typeFile;
            size = QString::number(info.size());
        } else {
            // Sockets, pipes, devices: they keep the type and size of the entry before.
            std::printf("something else\n");
            std::fflush(stdout);
        }
        if (name == QLatin1String("."))
            continue;

        auto *item = new QTreeWidgetItem(QStringList{name, size, type});
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        const QPixmap *icon = nullptr;
        if (name == QLatin1String(".."))
            icon = upPixmap.get();
        else if (info.isDir())
            icon = dirPixmap.get();
        else if (info.isSymLink())
            icon = linkPixmap.get();
        else if (info.isFile())
            icon = filePixmap.get();
        if (icon)
            item->setIcon(0, QIcon(*icon));
        items.append(item);
    }
    ListView->addTopLevelItems(items);
    // Columns as wide as their widest entry, so that names are not cut.
    for (int col = 0; col < ListView->columnCount(); ++col)
        ListView->resizeColumnToContents(col);
}

void ScQtFileEditDlg::changeDir(QTreeWidgetItem *item)
{
    const QString oldDir = dirName;
    dirName = QDir::cleanPath(dirName + QLatin1Char('/') + item->text(0));
    entries = readDir(dirName, filter);
    if (!entries) {
        dirName = oldDir;
        entries = readDir(dirName, filter);
    }
    // The list is refilled from the event loop: the item that was tapped must live on
    // until the list view is done with it.
    showTimer.start(10);
}

void ScQtFileEditDlg::slotSelectionChanged(QTreeWidgetItem *item)
{
    if (!item || item->text(2).isNull())
        return;
    const QString type = item->text(2);
    if (type == typeDir) {
        if (!busy)
            changeDir(item);
    } else if (type == typeFile) {
        const QString name = item->text(0);
        FNameLineEdit->setText(name);
        fileName = name;
    }
}

void ScQtFileEditDlg::slotDoubleClicked(QTreeWidgetItem *item)
{
    if (!item || item->text(2).isNull())
        return;
    if (item->text(2) == typeDir && !busy)
        changeDir(item);
}

void ScQtFileEditDlg::slotDirComboBoxChanged(int)
{
    if (busy)
        return;
    dirName = DirComboBox->currentText();
    entries = readDir(dirName, filter);
    slotShowDir();
}

void ScQtFileEditDlg::slotTypeComboBoxChanged(int)
{
    if (busy)
        return;
    filter = TypeComboBox->currentText();
    entries = readDir(dirName, filter);
    slotShowDir();
}

void ScQtFileEditDlg::slotFileTextChanged(const QString &text)
{
    fileName = text;
}

void ScQtFileEditDlg::slotMkDir()
{
    const QString name = FNameLineEdit->text();
    if (!name.isEmpty())
        fileDir.mkdir(dirName + QLatin1Char('/') + name); // a failure shows in the list
    entries = readDir(dirName, filter);
    FNameLineEdit->clear();
    slotShowDir();
}

void ScQtFileEditDlg::slotOK()
{
    if (appendExtension) {
        const QString type = TypeComboBox->currentText();
        if (type != QLatin1String("*")) {
            const int dot = type.lastIndexOf(QLatin1Char('.'));
            if (dot >= 0) {
                const QString extension = type.mid(dot);
                if (!fileName.contains(extension, Qt::CaseSensitive))
                    fileName += extension;
            }
        }
    }
    accept();
}

void ScQtFileEditDlg::slotCancel()
{
    reject();
}
