# Run by cpack on what it has installed for the package: CMake creates folders under the packager's
# umask, but everybody has to be able to read them.
file(CHMOD_RECURSE ${CPACK_TEMPORARY_DIRECTORY}
     DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
                           GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
