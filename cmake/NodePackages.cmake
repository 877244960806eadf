# npm packages of a folder, from its lock file.

find_program(QSX_NODE NAMES node nodejs REQUIRED)
find_program(QSX_NPM npm REQUIRED)

# qsx_node_packages(OUT folder): OUT is the file that is newer than the lock file once the packages are
# there; whatever uses them depends on it.
function(qsx_node_packages out folder)
  set(stamp ${folder}/node_modules/.package-lock.json)
  add_custom_command(OUTPUT ${stamp}
    COMMAND ${QSX_NPM} ci --ignore-scripts --no-audit --no-fund --loglevel=error
    COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
    DEPENDS ${folder}/package.json ${folder}/package-lock.json
    WORKING_DIRECTORY ${folder}
    COMMENT "Getting the npm packages of ${folder}"
    VERBATIM)
  set(${out} ${stamp} PARENT_SCOPE)
endfunction()
