# The common dialogs and the widget tools. modalhelper answers modal dialogs for every GUI
# test; later GUI subjects list it in their SOURCES too.
wayfern_add_test(calendar LIBS wayfern_ui SOURCES modalhelper.h modalhelper.cpp)
wayfern_add_test(filedialog LIBS wayfern_ui SOURCES modalhelper.h modalhelper.cpp)
wayfern_add_test(widgetutil LIBS wayfern_ui SOURCES modalhelper.h modalhelper.cpp)
# The record editors.
wayfern_add_test(costseditor LIBS wayfern_ui SOURCES editortestutil.h modalhelper.h modalhelper.cpp stdoutcapture.h)
