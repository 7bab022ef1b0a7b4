# The main window, the journey view, the overview and the file commands.
wayfern_add_test(app LIBS wayfern_ui SOURCES shellfixture.h stdoutcapture.h modalhelper.cpp formcheck.h formcheck.cpp widgetreaders.h widgetreaders.cpp)
wayfern_add_test(view LIBS wayfern_ui SOURCES shellfixture.h stdoutcapture.h modalhelper.cpp formcheck.h formcheck.cpp widgetreaders.h widgetreaders.cpp)
wayfern_add_test(overview LIBS wayfern_ui SOURCES shellfixture.h stdoutcapture.h modalhelper.cpp widgetreaders.h widgetreaders.cpp)
wayfern_add_test(filecommands LIBS wayfern_ui SOURCES shellfixture.h stdoutcapture.h modalhelper.cpp)
