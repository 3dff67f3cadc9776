#include "Model.h"
