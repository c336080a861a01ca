#include "KTPlugInClass.h"

KTPlugInClass::~KTPlugInClass() = default;
