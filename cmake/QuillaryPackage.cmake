# `cpack -G DEB` in the build folder makes a package for the Debian on which it runs.
set(CPACK_PACKAGE_NAME quillary)
set(CPACK_PACKAGE_VENDOR "The Quillary project")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION
    "Quillary writes invoices, quotes and credit notes, numbers them without gaps, works out taxes to the cent and prints
pages in several designs and six languages, with payment codes that banking apps read. It follows overdue invoices,
repeats others on schedules, bills tracked time and makes the reports that a tax return needs.
.
Everything stays in one library on this computer. It works in a window and on the command line and, as far as the user
allows it, with AI assistants.")
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR DEB)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Quillary maintainers <maintainers@quillary.invalid>")
set(CPACK_DEBIAN_PACKAGE_SECTION office)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# What is linked is found by dpkg-shlibdeps; what is loaded or started while the program runs is named here: the engine's own
# process, the icons of the windows, and logos as WebP.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6webenginecore6-bin, libqt6svg6, qt6-image-formats-plugins")
# The typefaces of the pages and those that lend them other scripts' letters; Wayland; Qt's own words in other languages; the
# programs that open mail and folders.
string(
    JOIN
    ", "
    CPACK_DEBIAN_PACKAGE_RECOMMENDS
    fontconfig
    fonts-roboto-hinted
    fonts-sil-charis
    fonts-hack
    fonts-noto-core
    fonts-noto-cjk
    qt6-wayland
    qt6-translations-l10n
    xdg-utils
)

include(CPack)
