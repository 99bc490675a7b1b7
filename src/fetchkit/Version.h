// The version of the library; the build and the installed package read it from here.
#pragma once

#define FETCHKIT_VERSION_MAJOR 1
#define FETCHKIT_VERSION_MINOR 0
#define FETCHKIT_VERSION_PATCH 0

// One number to compare, with two digits for each of the last two: 10203 for 1.2.3.
#define FETCHKIT_VERSION \
  (FETCHKIT_VERSION_MAJOR * 10000 + FETCHKIT_VERSION_MINOR * 100 + FETCHKIT_VERSION_PATCH)
