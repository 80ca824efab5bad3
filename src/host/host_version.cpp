#include "host/host_version.h"
