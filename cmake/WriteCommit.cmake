# cmake -DSOURCE=dir -DOUTPUT=file -P WriteCommit.cmake: the commit that is built, as a header that changes only when
# it does. Without a repository, as in a source archive, the text is empty.
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND git -C ${SOURCE} rev-parse --short=12 HEAD
  OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
execute_process(COMMAND git -C ${SOURCE} diff --quiet HEAD RESULT_VARIABLE compared ERROR_QUIET)
if(commit AND compared EQUAL 1)
  string(APPEND commit "+changes")
endif()
file(CONFIGURE OUTPUT ${OUTPUT} CONTENT "#define QSX_COMMIT \"@commit@\"\n" @ONLY)
