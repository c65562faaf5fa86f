#include "engine/Random.h"

RandomNumbers Random::current;
