#include "rows.h"
