# The common dialogs and the widget tools. modalhelper answers modal dialogs for every GUI
# test; later GUI subjects list it in their SOURCES too.
wayfern_add_test(calendar LIBS wayfern_ui SOURCES modalhelper.h modalhelper.cpp)
wayfern_add_test(filedialog LIBS wayfern_ui SOURCES modalhelper.h modalhelper.cpp)
wayfern_add_test(widgetutil LIBS wayfern_ui SOURCES modalhelper.h modalhelper.cpp)
wayfern_add_test(usercash LIBS wayfern_ui SOURCES modalhelper.h modalhelper.cpp formcheck.h)
wayfern_add_test(userpay LIBS wayfern_ui SOURCES modalhelper.h modalhelper.cpp formcheck.h stdoutcapture.h)
