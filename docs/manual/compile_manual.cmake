# Compiles a manual from copies of its sources, so that the compiler leaves nothing among them.
#   COMPILER     chmcmd
#   SOURCES      pages, Merov.hhp and Merov.hhc
#   CUTTER       program that cuts the pictures, merov_cut_pictures
#   PICTURES     its list
#   SCREENSHOTS  the folder it cuts from
#   FOLDER       where the copies go; emptied first
#   MANUAL       the file to write; removed when anything fails
file(REMOVE ${MANUAL})
file(REMOVE_RECURSE ${FOLDER})
file(COPY ${SOURCES} DESTINATION ${FOLDER})
execute_process(COMMAND ${CUTTER} ${PICTURES} ${SCREENSHOTS} ${FOLDER} COMMAND_ERROR_IS_FATAL ANY)

# Merov.hhp ends with the list of files: the pictures join it. Every page must stand there, and every picture be shown.
file(READ ${FOLDER}/Merov.hhp project)
file(GLOB pages RELATIVE ${FOLDER} ${FOLDER}/*.html)
set(text "")
foreach(page IN LISTS pages)
  string(FIND "${project}" "\n${page}\n" listed)
  if(listed EQUAL -1)
    message(FATAL_ERROR "Merov.hhp does not list ${page}.")
  endif()
  file(READ ${FOLDER}/${page} html)
  string(APPEND text "${html}")
endforeach()
file(GLOB pictures RELATIVE ${FOLDER} ${FOLDER}/*.png)
foreach(picture IN LISTS pictures)
  string(FIND "${text}" "src=\"${picture}\"" shown)
  if(shown EQUAL -1)
    message(FATAL_ERROR "No page shows ${picture}.")
  endif()
  file(APPEND ${FOLDER}/Merov.hhp "${picture}\n")
endforeach()

execute_process(
  COMMAND ${COMPILER} Merov.hhp
  WORKING_DIRECTORY ${FOLDER}
  RESULT_VARIABLE result
  OUTPUT_VARIABLE output
  ERROR_VARIABLE output)

# The compiler calls a link to a missing page or picture a warning, and one to a missing anchor an error, but
# reports success for all of them.
if(NOT result EQUAL 0 OR output MATCHES "(Error|Warning):" OR NOT EXISTS ${FOLDER}/Merov.chm)
  message(FATAL_ERROR "${COMPILER} failed (${result}):\n${output}")
endif()
cmake_path(GET MANUAL PARENT_PATH run_folder)
file(MAKE_DIRECTORY ${run_folder})
file(RENAME ${FOLDER}/Merov.chm ${MANUAL})
