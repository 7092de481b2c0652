#include "CCompletion.h"
#include "CParamValueText.h"
#include "Command.h"
#include "NParameterLookup.h"

#include <QRegularExpression>

namespace {

/// Looks up the names that may follow in the files that the command line names. Files of other
/// kinds are passed over; what cannot be loaded is reported and has no names.
class CKnownNames {
 public:
  CKnownNames(const CCompletion& completion, COutput& out) : mCompletion(completion), mOut(out) {}

  QStringList candidates() {
    switch (mCompletion.word()) {
      case EWord::HardwareId:
        visit(SFileInfo::Values,
              [this](const ICParameterFile& file) { mNames += file.hardwareIds(); });
        break;
      case EWord::SubDevice:
        visitHardwareIds([this](const ICParameterFile& file) {
          for (const quint8 id : file.subDeviceIds()) mNames.append(QString::number(id));
        });
        break;
      case EWord::Parameter:
        addParameters();
        break;
      case EWord::Assignment:
        addAssignments();
        break;
      default:
        return mCompletion.choices();
    }
    return mNames;
  }

 private:
  template <class Visitor>
  void visit(SFileInfo::EKind kind, const Visitor& visitor) {
    for (const QString& fileName : mCompletion.files()) {
      const std::optional<SFileInfo> info = SFileInfo::read(fileName, mOut);
      CLoadedFile loaded(mOut);
      if (info && info->kind == kind && loaded.load(fileName, kind)) visitor(loaded.file());
    }
  }

  template <class Visitor>
  void visitHardwareIds(const Visitor& visitor) {
    const QString only = mCompletion.value(NOptions::kHardwareId);
    visit(SFileInfo::Values, [&](ICParameterFile& file) {
      for (const QString& hardwareId : file.hardwareIds())
        if ((only.isEmpty() || hardwareId == only) && file.selectHardwareId(hardwareId))
          visitor(file);
    });
  }

  /// Of value files, or of definition files where there are no values.
  void addParameters() {
    const auto subDevice = CInvocation::toSubDevice(mCompletion.value(NOptions::kSubDevice));
    visitHardwareIds([&](const ICParameterFile& file) {
      mNames += subDevice ? file.paramNames(*subDevice) : NParameterLookup::allNames(file);
    });
    if (mNames.isEmpty()) {
      visit(SFileInfo::Definitions,
            [this](const ICParameterFile& file) { mNames += file.defNames(); });
    }
  }

  /// "NAME=", or the names of the choices after it.
  void addAssignments() {
    const int sign = mCompletion.typed().indexOf(QLatin1Char('='));
    if (sign < 0) {
      addParameters();
      // A word's name ends at the first sign.
      mNames = mNames.filter(QRegularExpression("^[^=]+$"));
      for (QString& each : mNames) each += QLatin1Char('=');
    }
    const QString name = mCompletion.typed().left(sign);
    visit(SFileInfo::Definitions, [&](const ICParameterFile& file) {
      for (const auto& each : CParamValueText::choices(file.paramDef(name)))
        mNames.append(name + QLatin1Char('=') + each.name);
    });
  }

  const CCompletion& mCompletion;
  COutput& mOut;
  QStringList mNames;
};

/// Prints "files" or "words", and then one word a line.
EExitStatus complete(const CInvocation& invocation, COutput& out) {
  const CCompletion completion(allCommands(),
                               CShellLine(invocation.argument(0), invocation.argument(1),
                                          invocation.argument(2), invocation.argumentsFrom(3)));
  const bool wantsFile = completion.word() == EWord::File;
  out.line(wantsFile ? "files" : "words");
  for (const QString& word : completion.replacements(CKnownNames(completion, out).candidates()))
    out.line(word);
  return ExitDone;
}

}  // namespace

QVector<SCommand> completeCommands() {
  return {{"complete",
           {},
           {},
           {{"HEAD", {}},
            {"TAIL", {}},
            {"REPLACED", {}},
            {"PIECE", {}, EWord::Text, SArgument::OneOrMore}},
           {},
           {},
           complete}};
}
