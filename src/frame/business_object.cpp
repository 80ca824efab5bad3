#include "frame/business_object.h"
