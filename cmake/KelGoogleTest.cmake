# Gives the target GTest::gtest: the installed library; or, when cross-compiling and with the standard library's debug
# mode (whose containers have another layout), one built from the sources in Debian's libgtest-dev. Nothing is
# downloaded. KEL_GTEST says whether there is one.

if(CMAKE_CROSSCOMPILING OR CMAKE_CXX_FLAGS MATCHES "-D_GLIBCXX_DEBUG")
  set(KEL_GTEST_SORGENTI /usr/src/googletest/googletest CACHE PATH "GoogleTest's sources, where its library does not serve")
  set(KEL_GTEST OFF)
  if(EXISTS ${KEL_GTEST_SORGENTI}/src/gtest-all.cc)
    set(KEL_GTEST ON)
    find_package(Threads REQUIRED)
    add_library(kel_gtest STATIC EXCLUDE_FROM_ALL ${KEL_GTEST_SORGENTI}/src/gtest-all.cc)
    target_compile_features(kel_gtest PUBLIC cxx_std_14)
    target_include_directories(kel_gtest SYSTEM PUBLIC ${KEL_GTEST_SORGENTI}/include PRIVATE ${KEL_GTEST_SORGENTI})
    target_link_libraries(kel_gtest PUBLIC Threads::Threads)
    add_library(GTest::gtest ALIAS kel_gtest)
  endif()
else()
  find_package(GTest QUIET)
  set(KEL_GTEST ${GTest_FOUND})
endif()
