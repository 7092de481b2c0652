#pragma once

class CParamDefItem;
class CTextLines;

namespace DefinitionLines {

/// Everything that a definition says, each on a line.
void add(const CParamDefItem& definition, CTextLines& out);

}  // namespace DefinitionLines
