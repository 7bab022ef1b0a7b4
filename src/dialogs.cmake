# Common dialogs and the forms they are built on. Included by ui.cmake into wayfern_ui.


target_sources(wayfern_ui PRIVATE
  forms/forms.qrc
  forms/formsupport.h
  forms/calenderdlg.ui forms/calenderdlg.h forms/calenderdlg.cpp
  forms/scqtfiledlg.ui forms/scqtfiledlg.h forms/scqtfiledlg.cpp
  dialogs/calenderedit.h dialogs/calenderedit.cpp
  dialogs/scqtfileedit.h dialogs/scqtfileedit.cpp
  dialogs/scqtfileeditdlg.h dialogs/scqtfileeditdlg.cpp
  dialogs/scqtwidgetutil.h dialogs/scqtwidgetutil.cpp
  dialogs/savechangesquestion.h dialogs/savechangesquestion.cpp
  forms/userpaydlg.ui forms/userpaydlg.h forms/userpaydlg.cpp
  forms/userktodlg.ui forms/userktodlg.h forms/userktodlg.cpp
  editors/userpayedit.h editors/userpayedit.cpp
  editors/userktoedit.h editors/userktoedit.cpp
)
