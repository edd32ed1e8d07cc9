# Run by cpack on what it is about to pack: everybody reads it and nobody else writes, whatever the umask.
execute_process(COMMAND chmod -R u+rwX,go+rX,go-w "${CPACK_TEMPORARY_INSTALL_DIRECTORY}" COMMAND_ERROR_IS_FATAL ANY)
