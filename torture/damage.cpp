// Files that were cut, of which a bit fell over or a block was lost: never a crash, never a changed
// object after a failed load, and what is loaded can be saved and loaded again.

#include "Formats.h"
#include "Torture.h"

using namespace NTorture;
using NFormats::EFormat;

namespace {

struct SExample {
  EFormat format;
  const char* name;
  const char* before;  ///< the test file that the object holds before
};
const SExample kExamples[] = {
    {NFormats::Definitions, "TwoAxisDrive.xpdef", "definitions/valid/Everything.xpdef"},
    {NFormats::Values, "TwoAxisDrive.xparam", "values/valid/TwoHardwareIds.xparam"},
    {NFormats::Settings, "MachineSettings.xset", "settings/valid/types.xml"},
    {NFormats::Compensation, "SpindleCompensation.xcomp", "compensation/valid/old.xml"},
    {NFormats::Compensation, "SpindleCompensationOld.xcomp", "compensation/valid/current.xml"}};

/// One example file, and an object of its format that holds something else.
class CVictim {
 public:
  CVictim(const SExample& example, const CFolder& folder, CTally& tally)
      : bytes(readFile(exampleFile(example.name))),
        mExample(example),
        mFolder(folder),
        mTally(tally) {
    renew();
    tally.check(bytes.size() > 1000, "an example is missing");
  }

  void load(const QByteArray& damaged, bool mustFail, const QString& damage) {
    const QString what = mExample.name + (": " + damage);
    writeFile(mFolder.path("damaged"), damaged);
    const bool loaded = mObject->load(mFolder.path("damaged"));
    mTally.check(!loaded || !mustFail, what + ": was loaded");
    if (!loaded && mObject->keepsContent()) {
      mTally.check(mObject->state() == mState, what + ": the failed load left something");
      return;
    }
    if (loaded) {
      const QString error =
          NFormats::roundTrip(mExample.format, mFolder.path("damaged"), mFolder.path("again"));
      mTally.check(error.isEmpty(), what + ": " + error);
    }
    renew();
  }

  const QByteArray bytes;

 private:
  void renew() {
    mObject = NFormats::make(mExample.format);
    mTally.check(mObject->load(testFile(mExample.before)), mExample.before);
    mObject->edit(1);
    mState = mObject->state();
  }

  const SExample mExample;
  const CFolder& mFolder;
  CTally& mTally;
  std::unique_ptr<NFormats::CFormat> mObject;
  QString mState;
};

int cutEverywhere(CVictim& victim, int step) {
  int count = 0;
  const int size = victim.bytes.size();
  for (int length = 0; length < size; length += length < size - 50 ? step : 1) {
    // Without its last line end a file is still whole.
    victim.load(victim.bytes.left(length), length != size - 2, QString("%1 bytes").arg(length));
    ++count;
  }
  return count;
}

void flipABit(CVictim& victim, CRandom& random) {
  QByteArray bytes = victim.bytes;
  const int position = random.below(bytes.size());
  const int bit = random.below(8);
  bytes[position] = static_cast<char>(bytes.at(position) ^ (1 << bit));
  victim.load(bytes, false, QString("bit %1 of byte %2").arg(bit).arg(position));
}

void loseABlock(CVictim& victim, CRandom& random) {
  QByteArray bytes = victim.bytes;
  const int length = 16 << random.below(9);  // up to a page, which disks lose most
  const int position = random.below(bytes.size() / length + 1) * length;
  const int lost = qMin(length, bytes.size() - position);
  bytes.replace(position, lost, QByteArray(lost, '\0'));
  victim.load(bytes, lost > 0, QString("%1 zeros at %2").arg(lost).arg(position));
}

}  // namespace

int main(int argc, char** argv) {
  const SOptions options(argc, argv);
  const int flips = options.pick(2000, 100000);
  const int blocks = options.pick(500, 5000);
  const CFolder folder;
  CTally tally("damage");
  CRandom random(1);
  int cuts = 0;
  for (const SExample& example : kExamples) {
    CVictim victim(example, folder, tally);
    victim.load(victim.bytes, false, "undamaged");
    cuts += cutEverywhere(victim, options.isLong ? 1 : 1 + victim.bytes.size() / 200);
    for (int i = 0; i < flips / 5; ++i) flipABit(victim, random);
    for (int i = 0; i < blocks / 5; ++i) loseABlock(victim, random);
  }
  return tally.finish(
      QString("%1 cut files, %2 flipped bits, %3 zeroed blocks").arg(cuts).arg(flips).arg(blocks));
}
