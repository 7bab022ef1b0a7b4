# The application shell: the main window, the journey view and its form, the program and
# the help viewer. Included by ui.cmake.

target_sources(wayfern_ui PRIVATE
  forms/shell.qrc
  forms/maindlg1.ui forms/maindlg1.h forms/maindlg1.cpp
  shell/wayfernapp.h shell/wayfernapp.cpp
  shell/wayfernview.h shell/wayfernview.cpp
)

add_executable(wayfern shell/main.cpp)
target_link_libraries(wayfern PRIVATE wayfern_ui)

add_executable(wayfern-help helpviewer/main.cpp)
target_link_libraries(wayfern-help PRIVATE Qt6::Widgets)


# Pictures of the main window for the documentation.
add_executable(wayfern-screenshot shell/screenshot.cpp)
target_link_libraries(wayfern-screenshot PRIVATE wayfern_ui)
