#include "dialogs/savechangesquestion.h"

#include <QCoreApplication>

QMessageBox::StandardButton askSaveChanges(QWidget *parent, const QString &caption)
{
    const QString text = QCoreApplication::translate(
        "SaveChangesQuestion", "You have modified the data!\nDo you want to save the changes ?");
    const auto answer = QMessageBox::information(
        parent, caption, text, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
        QMessageBox::Yes);
    return answer == QMessageBox::NoButton ? QMessageBox::Cancel : answer;
}
