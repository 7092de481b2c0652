// Shows a drive's parameters for editing: view DEFINITIONS VALUES [PICTURE]
// With the name of a picture, that is all it makes.
#include <ktoParameter/CParameterFileModel.h>
#include <ktoParameter/ICParameterFile.h>

#include <QApplication>
#include <QMessageBox>
#include <QPixmap>
#include <QTextStream>
#include <QTreeView>

#include <memory>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 3) return 2;
  const std::unique_ptr<ICParameterFile> file(
      ICParameterFile::createSingle(NktoGlobal::FILE_TYPE_PARAMETERS, nullptr));
  if (!file->loadParamDefFile(arguments[1], 0x10000) ||
      !file->loadParamFile(arguments[2], QString(), 0x10000)) {
    QTextStream(stderr) << file->errorMsg() << '\n';
    return 1;
  }
  //! [view]
  CParameterFileModel model(file.get());
  QTreeView view;
  view.setModel(&model);
  view.setUniformRowHeights(true);  // for large files
  QObject::connect(&model, &CParameterFileModel::editRefused, &view,
                   [&view](const QModelIndex& index, const QString& reason) {
                     const QString name = index.siblingAtColumn(0).data().toString();
                     QMessageBox::warning(&view, name, reason);
                   });
  //! [view]
  view.setWindowTitle(file->hardwareId());
  view.resize(1000, 700);
  view.expandToDepth(1);
  view.resizeColumnToContents(CParameterFileModel::NameColumn);
  if (arguments.size() == 4) return view.grab().save(arguments[3]) ? 0 : 1;
  view.show();
  return QApplication::exec();
}
