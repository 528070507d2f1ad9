# Run by cpack on the staged package, before it is packed.
set(staged ${CPACK_TEMPORARY_DIRECTORY}/usr)
if(NOT EXISTS ${staged}/bin/apsis)
  message(FATAL_ERROR "stage: ${staged}/bin/apsis is not staged")
endif()

# The game moves from usr/bin, where cmake --install puts it under any prefix, to usr/games, where
# Debian keeps games. It still finds its resources: games/../share/apsis is bin/../share/apsis.
file(MAKE_DIRECTORY ${staged}/games)
file(RENAME ${staged}/bin/apsis ${staged}/games/apsis)
file(REMOVE_RECURSE ${staged}/bin)

# Stripped as Debian strips: without the compiler's notes either.
execute_process(COMMAND strip --remove-section=.comment --remove-section=.note --strip-unneeded
                        ${staged}/games/apsis COMMAND_ERROR_IS_FATAL ANY)

# What lintian should know about the package.
file(MAKE_DIRECTORY ${staged}/share/lintian/overrides)
file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/lintian-overrides
     ${staged}/share/lintian/overrides/apsis)
