#include "geometry/AcGeTol.h"

constinit AcGeTol AcGeContext::gTol;
