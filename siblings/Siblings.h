#pragma once

/// The whole interface of the sibling libraries: settings files (`CKDPEx`), texts in extended data,
/// the drawing settings and the system path, with their overrides for the process, the user file.

#include "CKDPEx.h"
#include "Settings.h"
#include "UserFile.h"
#include "View.h"
#include "Xdata.h"
