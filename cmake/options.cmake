# What every target of this project shares. Targets of other projects never see it.
option(PAYSLATE_TESTS "Build the tests" ON)
option(PAYSLATE_STRICT "Warnings are errors" OFF)
option(PAYSLATE_SANITIZE "Address and undefined-behaviour sanitizers" OFF)
option(PAYSLATE_FUZZ "The fuzz targets and what they need, nothing else; for clang" OFF)

# Repeated builds are quick where ccache is installed.
find_program(PAYSLATE_CCACHE ccache)
if(PAYSLATE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${PAYSLATE_CCACHE})
endif()

add_library(payslate_options INTERFACE)
target_compile_features(payslate_options INTERFACE cxx_std_20)
target_include_directories(payslate_options INTERFACE ${PROJECT_SOURCE_DIR})
if(NOT MSVC)
  target_compile_options(payslate_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    # GCC 12 reports overlapping copies inside its own string library when it optimises fully.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    $<$<BOOL:${PAYSLATE_STRICT}>:-Werror>)
  if(PAYSLATE_SANITIZE)
    target_compile_options(payslate_options INTERFACE
      -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(payslate_options INTERFACE -fsanitize=address,undefined)
  endif()
  if(PAYSLATE_FUZZ)
    target_compile_options(payslate_options INTERFACE
      -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer
      # The words that are compared with come from dictionaries.
      -fno-sanitize-coverage=trace-cmp)
    target_link_options(payslate_options INTERFACE -fsanitize=address,undefined)
  endif()
endif()

# payslate_layer(NAME SOURCES ... LINKS ...): one static library a layer, sources listed one by one;
# LINKS are the layers it may include (the link graph is the include graph).
function(payslate_layer name)
  cmake_parse_arguments(LAYER "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  add_library(payslate_${name} STATIC ${LAYER_SOURCES})
  target_link_libraries(payslate_${name} PUBLIC payslate_options ${LAYER_LINKS} PRIVATE ${LAYER_PRIVATE_LINKS})
  set_target_properties(payslate_${name} PROPERTIES POSITION_INDEPENDENT_CODE ON CXX_EXTENSIONS OFF)
endfunction()
