#pragma once

// Data as text and back, and digests: all that is added to data.

#include "NSData_KTArchives.h"
#include "NSData_KTBase64.h"
