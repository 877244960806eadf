# Manual pages and completions, made by the program itself: beside it in a build tree as when it is installed.
find_program(QSX_SCDOC scdoc)
file(GLOB manuals CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/man/*.scd)
set(share ${CMAKE_BINARY_DIR}/share)
set(pages)
foreach(manual IN LISTS manuals)
  if(NOT QSX_SCDOC)
    break()
  endif()
  get_filename_component(command ${manual} NAME_WE)
  set(name qsxreport-${command})
  if(command STREQUAL "qsxreport")
    set(name qsxreport)
  endif()
  add_custom_command(OUTPUT ${share}/man/man1/${name}.1.gz DEPENDS qsxreport ${manual} VERBATIM
    COMMAND ${CMAKE_COMMAND} -E make_directory ${share}/man/man1
    COMMAND sh -c "\"$1\" manual \"$2\" < \"$3\" | \"$4\" | gzip -9n > \"$5\"" sh $<TARGET_FILE:qsxreport> ${command} ${manual}
      ${QSX_SCDOC} ${share}/man/man1/${name}.1.gz)
  list(APPEND pages ${share}/man/man1/${name}.1.gz)
endforeach()
# Where each shell looks: its name, folder and file.
foreach(shell IN ITEMS "bash bash-completion/completions qsxreport" "zsh zsh/vendor-completions _qsxreport"
                       "fish fish/vendor_completions.d qsxreport.fish")
  string(REPLACE " " ";" shell ${shell})
  list(GET shell 0 name)
  list(GET shell 1 folder)
  list(GET shell 2 file)
  add_custom_command(OUTPUT ${share}/${folder}/${file} DEPENDS qsxreport VERBATIM
    COMMAND ${CMAKE_COMMAND} -E make_directory ${share}/${folder}
    COMMAND sh -c "\"$1\" completion \"$2\" > \"$3\"" sh $<TARGET_FILE:qsxreport> ${name} ${share}/${folder}/${file})
  list(APPEND pages ${share}/${folder}/${file})
  install(FILES ${share}/${folder}/${file} DESTINATION ${CMAKE_INSTALL_DATADIR}/${folder} COMPONENT Tool)
endforeach()
add_custom_target(qsx_pages ALL DEPENDS ${pages})
if(QSX_SCDOC)
  install(DIRECTORY ${share}/man/man1 DESTINATION ${CMAKE_INSTALL_MANDIR} COMPONENT Tool)
endif()
