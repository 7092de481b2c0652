// Starts from no files, and leaves a definition file and a value file: create PATH
#include <ktoParameter/ICSimpleParamReader.h>

#include <QTextStream>

#include <memory>

namespace {

constexpr unsigned char kPump = 1;

/// Asking for a parameter is enough to create it, with the default.
void createParameters(ICSimpleParamReader& reader, QString& err) {
  unsigned int speed = 0;
  double pressure = 0;
  unsigned char mode = 0;
  QString place;
  CParamDefItem* definition = nullptr;
  reader.getParam(kPump, "Speed", "Motor", speed, 1450, err, 100, &definition);
  if (definition != nullptr) definition->setHint("Speed in 1/min.");
  reader.getParam(kPump, "Pressure", "Process/Limits", pressure, 6.5, err, 101);
  reader.getParam(kPump, "Mode", "Process", mode, 1, err, 102, &definition);
  if (definition != nullptr) definition->addEnums({{0, "off"}, {1, "manual"}, {2, "automatic"}});
  reader.getParam(kPump, "Place", "", place, "Hall 3", err, 103);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  QTextStream out(stdout);
  const std::unique_ptr<ICSimpleParamReader> reader(
      ICSimpleParamReader::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, "PUMP-1",
                                        NParamDef::FullAccess, nullptr, 0x10000, 0x10000));
  QString missing;
  QString err;
  reader->load(QString::fromLocal8Bit(argv[1]),
               missing);  // true: with full access, a missing file is no failure
  reader->setMetaData("KTO application team", "Parameters of a pump");
  createParameters(*reader, err);
  reader->setSubDevType(kPump, NParamDef::SUB_DEV_TYPE_DRIVE);
  reader->setSubDevName(kPump, "Feed pump");
  reader->setParam(kPump, "Mode", static_cast<unsigned char>(2), err);
  out << "Writing " << reader->paramDefFileName() << " and " << reader->paramFileName() << '\n';
  const bool saved = reader->closeFiles(true);
  out << err;
  return saved && err.isEmpty() ? 0 : 1;
}
