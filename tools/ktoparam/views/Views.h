#pragma once

#include "SCommand.h"

class CLoadedFile;
class CParamDefItem;
class CReferences;
class CSubjectLines;
class QJsonObject;

/// How files are shown: each kind of file has a source …View.cpp.
namespace NViews {

/// One line with type, version and Head.
QString headLine(const CLoadedFile& loaded);
/// The same as the beginning of a JSON object.
QJsonObject headJson(const CLoadedFile& loaded);

// What `show` prints, as a table or as JSON.
void showDefinitions(const CLoadedFile& loaded, bool isJson, COutput& out);
/// Only the definitions that are named, each with all that refers to it.
EExitStatus showWholeDefinitions(const CLoadedFile& loaded, const QStringList& words, bool isJson,
                                 COutput& out);
void showCompensation(const CLoadedFile& loaded, bool isJson, COutput& out);
EExitStatus showSettings(const CLoadedFile& loaded, bool isJson, COutput& out);
/// Loads the file, too, with the definitions that the command line names.
EExitStatus showValues(const CInvocation& invocation, COutput& out);

/// An object of JSON.
QJsonObject definitionJson(const CParamDefItem& definition, CReferences& references);

// What `text` prints after the Head.
void addDefinitions(const CLoadedFile& loaded, const CSubjectLines& lines);
void addCompensation(const CLoadedFile& loaded, CSubjectLines& lines);
void addSettings(const CLoadedFile& loaded, CSubjectLines& lines);
void addValues(const CLoadedFile& loaded, CSubjectLines& lines);

}  // namespace NViews
