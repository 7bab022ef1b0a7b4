# The record editors and their forms. Included by ui.cmake into wayfern_ui.

target_sources(wayfern_ui PRIVATE
  forms/itemcontentform.h
  forms/costsdlg.ui forms/costsdlg.h forms/costsdlg.cpp
  forms/basedlg.ui forms/basedlg.h forms/basedlg.cpp
  editors/itemeditor.h
  editors/costsedit.h editors/costsedit.cpp
  editors/baseedit.h editors/baseedit.cpp
)
