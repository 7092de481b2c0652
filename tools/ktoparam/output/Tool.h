#pragma once

#include <QCoreApplication>

/// The translation context of all texts of the tool: Tool::tr("…").
class Tool {
  Q_DECLARE_TR_FUNCTIONS(ktoparam)
};
