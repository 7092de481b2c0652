#pragma once

// What all that prints results needs.
#include "COutput.h"
#include "CTable.h"
#include "InOrder.h"
#include "JsonValues.h"
#include "NDisplayText.h"
#include "Tool.h"
