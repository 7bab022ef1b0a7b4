# The common dialogs and the widget tools. modalhelper answers modal dialogs for every GUI
# test; later GUI subjects list it in their SOURCES too. formcheck checks a form from tables,
# widgetreaders reads what lists, tables and combo boxes show.
wayfern_add_test(calendar LIBS wayfern_ui SOURCES modalhelper.h modalhelper.cpp formcheck.h formcheck.cpp widgetreaders.h widgetreaders.cpp)
wayfern_add_test(filedialog LIBS wayfern_ui SOURCES modalhelper.h modalhelper.cpp stdoutcapture.h formcheck.h formcheck.cpp widgetreaders.h widgetreaders.cpp)
wayfern_add_test(widgetutil LIBS wayfern_ui SOURCES modalhelper.h modalhelper.cpp widgetreaders.h widgetreaders.cpp)
wayfern_add_test(savechanges LIBS wayfern_ui SOURCES modalhelper.h modalhelper.cpp)
