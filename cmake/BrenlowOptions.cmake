# One interface target carries the language level, the warnings and Qt's
# strictness switches; every Brenlow target links it.
add_library(brenlow_options INTERFACE)
target_compile_features(brenlow_options INTERFACE cxx_std_20)
target_compile_options(brenlow_options INTERFACE -Wall -Wextra -Wnon-virtual-dtor)
target_compile_definitions(brenlow_options INTERFACE
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_USE_QSTRINGBUILDER
  QT_NO_URL_CAST_FROM_STRING
  QT_NO_FOREACH)

# CI builds with warnings as errors; a developer's build only shows them.
option(BRENLOW_WERROR "Treat compiler warnings as errors" OFF)
if(BRENLOW_WERROR)
  target_compile_options(brenlow_options INTERFACE -Werror)
endif()

option(BRENLOW_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
if(BRENLOW_SANITIZE)
  target_compile_options(brenlow_options INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer)
  target_link_options(brenlow_options INTERFACE -fsanitize=address,undefined)
endif()

# A compiler cache, when the machine has one, keeps rebuilds short.
find_program(BRENLOW_CCACHE ccache)
if(BRENLOW_CCACHE)
  set(CMAKE_C_COMPILER_LAUNCHER ${BRENLOW_CCACHE})
  set(CMAKE_CXX_COMPILER_LAUNCHER ${BRENLOW_CCACHE})
endif()
