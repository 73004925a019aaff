#include "preview/picture.h"
