# GUI tests, on the offscreen platform. dialogs.cmake holds the common dialogs' tests and the
# shared modal helper; shell.cmake the main window's and the view's.
if(TARGET wayfern_ui)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets)
  include(${CMAKE_CURRENT_SOURCE_DIR}/dialogs.cmake OPTIONAL)
  include(${CMAKE_CURRENT_SOURCE_DIR}/shell.cmake OPTIONAL)
endif()
