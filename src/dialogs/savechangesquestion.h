#pragma once

#include <QMessageBox>
#include <QString>

class QWidget;

// The one question asked wherever unsaved changes would be dropped: the window before New,
// Open and Quit, and every editor on Cancel or close. Buttons Yes, No and Cancel, in that
// order; a box closed without a choice answers Cancel.
QMessageBox::StandardButton askSaveChanges(QWidget *parent, const QString &caption);
