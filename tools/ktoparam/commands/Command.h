#pragma once

// What every command needs.
#include "CInvocation.h"
#include "CLoadedFile.h"
#include "COutput.h"
#include "CTable.h"
#include "Commands.h"
#include "DisplayText.h"
#include "JsonValues.h"
#include "Tool.h"

#include <QJsonArray>
#include <QJsonObject>
