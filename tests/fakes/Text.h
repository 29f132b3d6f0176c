#pragma once

#include "runtime/SourceText.h" // the tests' texts are made as the program's are
