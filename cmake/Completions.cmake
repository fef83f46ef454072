# What shells need to complete the words of korvane-cli, as the built program itself tells it; none where it can't run
# here.
set(completions_bash ${CMAKE_INSTALL_DATADIR}/bash-completion/completions/korvane-cli)
set(completions_fish ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d/korvane-cli.fish)
set(completions_zsh ${CMAKE_INSTALL_DATADIR}/zsh/site-functions/_korvane-cli)
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  # On Debian that folder is the administrator's, below /usr/local.
  set(completions_zsh ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions/_korvane-cli)
endif()
if(NOT CMAKE_CROSSCOMPILING)
  foreach(shell bash fish zsh)
    cmake_path(GET completions_${shell} PARENT_PATH folder)
    cmake_path(GET completions_${shell} FILENAME name)
    set(made ${PROJECT_BINARY_DIR}/completions/${shell}/${name})
    file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/completions/${shell})
    install(CODE "
      execute_process(COMMAND $<TARGET_FILE:korvane-cli> completion ${shell} OUTPUT_FILE ${made} ERROR_QUIET
                      RESULT_VARIABLE failed)
      if(failed)
        message(STATUS \"No completion for ${shell}\")
      else()
        file(INSTALL ${made} DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${folder}\")
      endif()")
  endforeach()
endif()
