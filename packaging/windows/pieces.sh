# Sourced by prefix: the pieces the Windows program stands on, and how each is built. A
# recipe runs in the unpacked sources, may litter $work and puts what it makes into $into;
# place PIECE is the folder of a piece that is there already.

# By the names of Debian's source packages; what a piece needs stands before it.
pieces=(sqlite3 proj glibc geos cli11 nlohmann-json3 qt6-base)
declare -A needs=([proj]=sqlite3 [geos]=glibc)
# What all recipes are written in; a change of it builds every piece anew.
common_recipe=(put_toolchain cmake_piece)

# put_toolchain FOLDER: what CMake must know to find things there, and only there, and to
# build for Windows.
put_toolchain() {
  cat >"$1/toolchain.cmake" <<'T'
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH ${CMAKE_CURRENT_LIST_DIR})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
T
}

# cmake_piece OPTION...: configures, builds and installs the current folder's project.
cmake_piece() {
  put_toolchain "$work"
  cmake -S . -B "$work/build" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$work/toolchain.cmake" \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX="$into" "$@"
  cmake --build "$work/build" --parallel "$(nproc)"
  cmake --install "$work/build"
}

build_sqlite3() {
  ./configure
  make sqlite3.c
  x86_64-w64-mingw32-gcc-posix -O2 -DSQLITE_OMIT_LOAD_EXTENSION \
    -DSQLITE_THREADSAFE=1 -c sqlite3.c -o sqlite3.o
  mkdir -p "$into/lib" "$into/include"
  x86_64-w64-mingw32-ar rcs "$into/lib/libsqlite3.a" sqlite3.o
  cp sqlite3.h sqlite3ext.h "$into/include/"
}

build_proj() {
  cmake_piece -DBUILD_SHARED_LIBS=OFF \
    -DENABLE_TIFF=OFF -DENABLE_CURL=OFF -DBUILD_PROJSYNC=OFF -DBUILD_APPS=OFF \
    -DBUILD_TESTING=OFF -DNLOHMANN_JSON_ORIGIN=internal -DEXE_SQLITE3=/usr/bin/sqlite3 \
    -DSQLITE3_INCLUDE_DIR="$(place sqlite3)/include" \
    -DSQLITE3_LIBRARY="$(place sqlite3)/lib/libsqlite3.a"
  # The exported targets name SQLite by its place on this machine. Who calls PROJ calls
  # the maths functions too, and must find them here before those of the system.
  sed -i -e "s#$(place sqlite3)#\${_IMPORT_PREFIX}#g" \
    -e 's#lib/libsqlite3.a"#lib/libsqlite3.a;${_IMPORT_PREFIX}/lib/libm-glibc.dll.a"#' \
    "$into"/lib/cmake/proj*/*.cmake
  grep -q libm-glibc "$into/lib/cmake/proj/proj-targets.cmake"
}

# The maths functions.
build_glibc() { "$here/maths/build" . "$into" "$work/maths"; }

# A library of its own, which its licence asks for. It gets the maths functions before those
# of the system, so that its coordinates are those of Linux.
build_geos() {
  cmake_piece -DBUILD_SHARED_LIBS=ON -DBUILD_TESTING=OFF -DBUILD_BENCHMARKS=OFF \
    -DBUILD_GEOSOP=OFF -DCMAKE_CXX_STANDARD_LIBRARIES="$(place glibc)/lib/libm-glibc.dll.a"
}

# Headers alone; the compiler must not see the rest of this machine's.
build_cli11() {
  mkdir -p "$into/include"
  cp -r include/CLI "$into/include/"
}

build_nlohmann-json3() {
  mkdir -p "$into/include"
  cp -r include/nlohmann "$into/include/"
}

build_qt6-base() {
  cmake_piece -DBUILD_SHARED_LIBS=ON \
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
    -DQT_QMAKE_TARGET_MKSPEC=win32-g++ -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF \
    -DINPUT_opengl=no -DFEATURE_vulkan=OFF -DFEATURE_network=OFF -DFEATURE_sql=OFF \
    -DFEATURE_dbus=OFF -DFEATURE_xml=OFF -DFEATURE_concurrent=OFF -DFEATURE_tabletevent=OFF \
    -DFEATURE_direct2d1_1=OFF -DFEATURE_icu=OFF -DFEATURE_glib=OFF -DFEATURE_zstd=OFF \
    -DFEATURE_system_zlib=OFF -DFEATURE_system_pcre2=OFF -DFEATURE_system_harfbuzz=OFF \
    -DFEATURE_system_freetype=OFF -DFEATURE_system_png=OFF -DFEATURE_system_jpeg=OFF \
    -DFEATURE_system_doubleconversion=OFF -DFEATURE_system_libb2=OFF \
    -DFEATURE_system_textmarkdownreader=OFF
}
