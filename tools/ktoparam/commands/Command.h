#pragma once

// What every command needs.
#include "CInvocation.h"
#include "CLoadedFile.h"
#include "COutput.h"
#include "CTable.h"
#include "Commands.h"
#include "JsonValues.h"
#include "NDisplayText.h"
#include "Tool.h"

#include <QJsonArray>
#include <QJsonObject>
