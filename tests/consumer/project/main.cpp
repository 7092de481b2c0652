// Loads a definition file and a value file, and prints the hardware ids; loads a table and
// prints how its picture begins: consumer DEF VALUES TABLE.
#include <CCompensationPlot.h>
#include <ICCompensationFile.h>
#include <ICParameterFile.h>
#include <ktoParameter/ICParameterFile.h>  // both ways lead to the same header

#include <QTextStream>

#include <memory>

int main(int argc, char** argv) {
  constexpr unsigned int kRevision = 0x10000;
  QTextStream out(stdout);
  if (argc != 4) return 2;
  const std::unique_ptr<ICParameterFile> file(
      ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
  if (!file->loadParamDefFile(QString::fromLocal8Bit(argv[1]), kRevision) ||
      !file->loadParamFile(QString::fromLocal8Bit(argv[2]), QString(), kRevision)) {
    out << file->errorMsg() << '\n';
    return 1;
  }
  out << file->hardwareIds().join(QLatin1Char(' ')) << '\n';
  const std::unique_ptr<ICCompensationFile> table(ICCompensationFile::create(nullptr));
  if (table->load(QString::fromLocal8Bit(argv[3]), QStringLiteral("1.0")) != 0) return 1;
  out << CCompensationPlot(*table).toSvg().left(5) << '\n';
  return 0;
}
