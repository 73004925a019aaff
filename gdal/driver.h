#pragma once

#include <cpl_port.h>

/// What GDAL calls in a driver of the file name `ogr_Kestrin`, once in a process: makes job files
/// known to it. Without effect, but for CPLError, in a GDAL of another version than this was
/// built for, whose classes may be laid out differently.
extern "C" CPL_DLL void RegisterOGRKestrin();
