# SPDX-License-Identifier: GPL-3.0-or-later
# Eigen3::Eigen and Boost::headers, libraries of headers alone. Those are the same on every system, so
# a build for another system takes this one's, but beside Boost's are the system's own: that build
# sees them through a folder that has no others.
if(CMAKE_CROSSCOMPILING)
    find_path(EIGEN_HEADERS unsupported/Eigen/FFT
        PATHS /usr/include /usr/local/include PATH_SUFFIXES eigen3
        REQUIRED NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    find_path(BOOST_HEADERS boost/math/distributions/chi_squared.hpp
        PATHS /usr/include /usr/local/include
        REQUIRED NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
    set(boostAlone ${PROJECT_BINARY_DIR}/headers)
    file(MAKE_DIRECTORY ${boostAlone})
    file(CREATE_LINK ${BOOST_HEADERS}/boost ${boostAlone}/boost SYMBOLIC)
    add_library(Eigen3::Eigen INTERFACE IMPORTED)
    target_include_directories(Eigen3::Eigen INTERFACE ${EIGEN_HEADERS})
    add_library(Boost::headers INTERFACE IMPORTED)
    target_include_directories(Boost::headers INTERFACE ${boostAlone})
else()
    find_package(Eigen3 3.3 REQUIRED NO_MODULE)
    find_package(Boost 1.74 REQUIRED)
endif()
