#include "Setup.h"

#include <QtQuickTest>

QUICK_TEST_MAIN_WITH_SETUP(controls, Setup)
