// Loads a definition file and a value file, and prints the hardware ids: consumer DEF VALUES.
#include <ICParameterFile.h>
#include <ktoParameter/ICParameterFile.h>  // both ways lead to the same header

#include <QTextStream>

#include <memory>

int main(int argc, char** argv) {
  constexpr unsigned int kRevision = 0x10000;
  QTextStream out(stdout);
  if (argc != 3) return 2;
  const std::unique_ptr<ICParameterFile> file(
      ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
  if (!file->loadParamDefFile(QString::fromLocal8Bit(argv[1]), kRevision) ||
      !file->loadParamFile(QString::fromLocal8Bit(argv[2]), QString(), kRevision)) {
    out << file->errorMsg() << '\n';
    return 1;
  }
  out << file->hardwareIds().join(QLatin1Char(' ')) << '\n';
  return 0;
}
