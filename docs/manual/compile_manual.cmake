# Compiles a manual from copies of its sources, so that the compiler leaves nothing among them.
#   COMPILER  chmcmd
#   SOURCES   pages, pictures, Merov.hhp and Merov.hhc
#   FOLDER    where the copies go; emptied first
#   MANUAL    the file to write; removed when anything fails
file(REMOVE ${MANUAL})
file(REMOVE_RECURSE ${FOLDER})
file(COPY ${SOURCES} DESTINATION ${FOLDER})
execute_process(
  COMMAND ${COMPILER} Merov.hhp
  WORKING_DIRECTORY ${FOLDER}
  RESULT_VARIABLE result
  OUTPUT_VARIABLE output
  ERROR_VARIABLE output)

# The compiler calls a link to a missing page a warning, and one to a missing anchor an error, but
# reports success for both.
if(NOT result EQUAL 0 OR output MATCHES "(Error|Warning):" OR NOT EXISTS ${FOLDER}/Merov.chm)
  message(FATAL_ERROR "${COMPILER} failed (${result}):\n${output}")
endif()
cmake_path(GET MANUAL PARENT_PATH run_folder)
file(MAKE_DIRECTORY ${run_folder})
file(RENAME ${FOLDER}/Merov.chm ${MANUAL})
