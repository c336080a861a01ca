# The application bundle that the build tree and an installed host have in common:
#
#   Cobble.app/Contents/Info.plist
#                       Linux/cobble
#                       Frameworks/KTUtility.framework/libKTUtility.so.N, Resources/
#                       Resources/
set(KTUTILITY_BUNDLE_CONTENTS "${PROJECT_BINARY_DIR}/Cobble.app/Contents")
set(KTUTILITY_FRAMEWORK_FOLDER "${KTUTILITY_BUNDLE_CONTENTS}/Frameworks/KTUtility.framework")
