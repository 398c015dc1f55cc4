#include "exact_drawing.h"
