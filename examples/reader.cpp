// Reads some parameters of a drive, changes one of them and saves it: reader PATH
#include <ktoParameter/ICSimpleParamReader.h>

#include <QTextStream>

#include <memory>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  QTextStream out(stdout);
  const std::unique_ptr<ICSimpleParamReader> reader(
      ICSimpleParamReader::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, "KTO-2A-16",
                                        NParamDef::ReadWrite, nullptr, 0x10000, 0x10000));
  QString err;
  if (!reader->load(QString::fromLocal8Bit(argv[1]), err)) {
    out << err;
    return 1;
  }
  constexpr unsigned char kAxisX = 2;
  unsigned short cycleTime = 0;
  int velocity = 0;
  double feed = 0;
  short mode = 0;
  QString motor;
  // Each call names sub-device, parameter and group, where the value goes to, and a default.
  reader->getParam(0, "FieldbusCycleTime", "Fieldbus/Synchronisation", cycleTime, 1000, err);
  reader->getParam(kAxisX, "VelocityLimit", "Motion/Limits", velocity, 500, err);
  reader->getParam(kAxisX, "FeedConstant", "Motion/Mechanics", feed, 10.0, err);
  reader->getParam(kAxisX, "OperatingMode", "Motion/Operation", mode, 8, err);
  reader->getParam(kAxisX, "MotorName", "Motor/Rating", motor, "unknown", err);
  out << reader->subDevName(kAxisX) << ": " << motor << ", " << feed << " mm per turn, at most "
      << velocity << " mm/s, " << reader->paramDef("OperatingMode").enumNameOfValue(mode)
      << ", cycle " << cycleTime << " us\n";
  reader->setParam(kAxisX, "VelocityLimit", velocity / 2, err);
  const bool saved = reader->closeFiles(true);
  out << err;
  return saved ? 0 : 1;
}
