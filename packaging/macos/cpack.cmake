# SPDX-License-Identifier: MIT
set(CPACK_GENERATOR DragNDrop)
set(CPACK_PACKAGE_FILE_NAME tarnwick-client-${PROJECT_VERSION}-${TARNWICK_VARIANT_SUFFIX})
set(CPACK_DMG_VOLUME_NAME "Tarnwick Network")
# macdeployqt has signed the programs by then.
set(CPACK_STRIP_FILES OFF)
