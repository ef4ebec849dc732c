# Finds OpenCV's core and imgproc libraries and nothing else.
#
# The distribution's OpenCV package configuration depends on every OpenCV module; these two
# libraries are all the project needs. The configuration is used where it is installed.
#
# Defines the target OpenCvCoreImgproc::OpenCvCoreImgproc.

find_package(OpenCV QUIET CONFIG COMPONENTS core imgproc)
if(OpenCV_FOUND)
    set(OpenCvCoreImgproc_INCLUDE_DIR "${OpenCV_INCLUDE_DIRS}")
    set(OpenCvCoreImgproc_LIBRARIES opencv_core opencv_imgproc)
else()
    find_path(OpenCvCoreImgproc_INCLUDE_DIR opencv2/imgproc/imgproc_c.h PATH_SUFFIXES opencv4)
    find_library(OpenCvCoreImgproc_CORE_LIBRARY opencv_core)
    find_library(OpenCvCoreImgproc_IMGPROC_LIBRARY opencv_imgproc)
    mark_as_advanced(OpenCvCoreImgproc_INCLUDE_DIR OpenCvCoreImgproc_CORE_LIBRARY
        OpenCvCoreImgproc_IMGPROC_LIBRARY)
    if(OpenCvCoreImgproc_CORE_LIBRARY AND OpenCvCoreImgproc_IMGPROC_LIBRARY)
        set(OpenCvCoreImgproc_LIBRARIES "${OpenCvCoreImgproc_IMGPROC_LIBRARY}"
            "${OpenCvCoreImgproc_CORE_LIBRARY}")
    endif()
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(OpenCvCoreImgproc
    REQUIRED_VARS OpenCvCoreImgproc_LIBRARIES OpenCvCoreImgproc_INCLUDE_DIR)

if(OpenCvCoreImgproc_FOUND AND NOT TARGET OpenCvCoreImgproc::OpenCvCoreImgproc)
    add_library(OpenCvCoreImgproc::OpenCvCoreImgproc INTERFACE IMPORTED)
    set_target_properties(OpenCvCoreImgproc::OpenCvCoreImgproc PROPERTIES
        INTERFACE_INCLUDE_DIRECTORIES "${OpenCvCoreImgproc_INCLUDE_DIR}"
        INTERFACE_LINK_LIBRARIES "${OpenCvCoreImgproc_LIBRARIES}")
endif()
