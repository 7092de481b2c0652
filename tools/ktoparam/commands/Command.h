#pragma once

// What every command needs.
#include "CInvocation.h"
#include "CLoadedFile.h"
#include "Commands.h"
#include "Output.h"
