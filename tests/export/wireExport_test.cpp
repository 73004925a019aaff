#include "export/wireExport.h"

#include <gtest/gtest.h>
