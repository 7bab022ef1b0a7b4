# The widget layer: forms (.ui files and their form classes), dialogs, editors and the shell.
find_package(Qt6 6.4 REQUIRED COMPONENTS Widgets)

# dialogs.cmake adds the forms, the common dialogs and the widget tools; shell.cmake the
# main window, the view and the executable. Each adds its sources to wayfern_ui.
if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/dialogs.cmake)
  add_library(wayfern_ui STATIC)
  target_include_directories(wayfern_ui PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(wayfern_ui PUBLIC wayfern_core Qt6::Widgets)
  set_target_properties(wayfern_ui PROPERTIES AUTOUIC_SEARCH_PATHS ${CMAKE_CURRENT_SOURCE_DIR}/forms)
  # Form headers include the ui_*.h that AUTOUIC writes: whoever includes a form needs them.
  target_include_directories(wayfern_ui PUBLIC ${CMAKE_CURRENT_BINARY_DIR}/wayfern_ui_autogen/include)
  include(${CMAKE_CURRENT_SOURCE_DIR}/dialogs.cmake)
  include(${CMAKE_CURRENT_SOURCE_DIR}/editors.cmake OPTIONAL)
  include(${CMAKE_CURRENT_SOURCE_DIR}/shell.cmake OPTIONAL)
endif()
