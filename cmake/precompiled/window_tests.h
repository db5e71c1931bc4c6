// What most tests of the window include.
#pragma once

#include "tests.h"
#include "window.h"
