# Brings a copy of the translation file up to date with the sources, as the lupdate target
# does, and runs the translation check on the copy: a text that reaches tr() without a
# translation fails here.
#   cmake -DLUPDATE=... -DSOURCE_DIR=... -DTS=... -DCOPY=... -DCHECK=... -P translations_current.cmake
get_filename_component(copy_dir "${COPY}" DIRECTORY)
file(MAKE_DIRECTORY "${copy_dir}")
configure_file("${TS}" "${COPY}" COPYONLY)
execute_process(
  COMMAND "${LUPDATE}" -silent -no-obsolete -locations none "${SOURCE_DIR}" -ts "${COPY}"
  RESULT_VARIABLE lupdate_result)
if(NOT lupdate_result EQUAL 0)
  message(FATAL_ERROR "lupdate failed: ${lupdate_result}")
endif()
execute_process(
  COMMAND "${CMAKE_COMMAND}" -E env "WAYFERN_TS_FILE=${COPY}" "${CHECK}"
  RESULT_VARIABLE check_result)
if(NOT check_result EQUAL 0)
  message(FATAL_ERROR "the updated translation file is incomplete; update "
                      "translations/wayfern_de.ts (target wayfern_lupdate) and translate")
endif()
