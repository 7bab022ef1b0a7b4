#include "dialogs/scqtfileedit.h"

#include "dialogs/scqtfileeditdlg.h"

#include <QDir>
#include <QPointer>

#include <memory>

namespace {

struct Flags
{
    int filterSpec;
    bool useNameFilter;
    bool dirsFirst;
    bool appendExtension;
    bool mkDirEnabled;
};

QString runDialog(QWidget *parent, const char *name, const QString &dir, const QString &filter,
                  const Flags &flags)
{
    std::unique_ptr<ScQtFileEditDlg> dlg =
        std::make_unique<ScQtFileEditDlg>(parent, name, dir, filter);
    dlg->setFilterSpec(flags.filterSpec);
    dlg->setUseNameFilter(flags.useNameFilter);
    dlg->setDirsFirst(flags.dirsFirst);
    dlg->setAppendExtension(flags.appendExtension);
    dlg->setMkDirEnabled(flags.mkDirEnabled);
    dlg->refresh();

    // The parent may go while the dialog runs, and takes the dialog with it.
    const QPointer<ScQtFileEditDlg> alive(dlg.get());
    dlg->exec();
    if (!alive) {
        (void)dlg.release();
        return QStringLiteral("");
    }
    return dlg->result() == QDialog::Accepted ? dlg->selectedPath() : QStringLiteral("");
}

} // namespace

ScQtFileEdit::ScQtFileEdit() : QObject(nullptr) {}

ScQtFileEdit::~ScQtFileEdit() = default;

QString ScQtFileEdit::getOpenFileName(QWidget *parent, const char *name, const QString &dir,
                                      const QString &filter)
{
    return runDialog(parent, name, dir, filter,
                     {int(QDir::AllEntries | QDir::System), true, true, false, false});
}

QString ScQtFileEdit::getSaveFileName(QWidget *parent, const char *name, const QString &dir,
                                      const QString &filter)
{
    return runDialog(parent, name, dir, filter, {int(QDir::AllEntries), true, true, true, false});
}

QString ScQtFileEdit::getExistingDirectory(QWidget *parent, const char *name, const QString &dir)
{
    return runDialog(parent, name, dir, QStringLiteral("*"),
                     {int(QDir::Dirs), false, true, false, false});
}

QString ScQtFileEdit::getNewFileName(QWidget *parent, const char *name, const QString &dir,
                                     const QString &filter)
{
    return runDialog(parent, name, dir, filter, {int(QDir::AllEntries), false, true, true, true});
}
