#include "ui/picture/PictureActions.h"

#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QImage>
#include <QMimeData>
#include <QStringList>
#include <memory>
#include <string>

#include "desk/prompter.h"
#include "desk/save_file.h"
#include "store/durable_file.h"
#include "ui/print/ReportPrinter.h"
#include "ui/text.h"

namespace orvex {
namespace {

std::string Tr(const char* text) {
  return FromQt(QCoreApplication::translate("PictureActions", text));
}

/// The format that the name of a file asks for by its ending.
std::optional<PictureFormat> FormatOf(const std::filesystem::path& file) {
  const QString ending = ToQt(file.extension().string()).mid(1).toLower();
  return PictureFormatNamed(FromQt(ending));
}

/// "SVG pictures (*.SVG)|*.SVG" and so on.
std::string PictureFilter() {
  QStringList parts;
  for (const PictureFormatScheme& scheme : kPictureFormats) {
    const QString pattern = QStringLiteral("*.") + ToQt(scheme.id).toUpper();
    parts << QStringLiteral("%1 (%2)").arg(ToQt(scheme.fileType), pattern) << pattern;
  }
  return FromQt(parts.join(QLatin1Char('|')));
}

}  // namespace

void CopyPicture(const MakePictureFile& make) {
  auto copied = std::make_unique<QMimeData>();
  copied->setImageData(QImage::fromData(make(PictureFormat::png), "PNG"));
  copied->setData(QStringLiteral("image/svg+xml"), make(PictureFormat::svg));
  QApplication::clipboard()->setMimeData(copied.release());
}

void SavePicture(const MakePictureFile& make, const std::filesystem::path& suggested,
                 const Printing& printing) {
  FilePrompt prompt = {.folder = suggested.parent_path(),
                       .filter = PictureFilter(),
                       .defaultName = suggested.filename().string()};
  std::filesystem::path path = printing.prompter.AskSaveFile(prompt).path;
  while (!path.empty() && !FormatOf(path)) {
    printing.prompter.Tell(
        Tr("The name of a picture must end with .svg, .pdf or .png, which says what it becomes."));
    prompt.defaultName = path.stem().string();
    path = printing.prompter.AskSaveFile(prompt).path;
  }
  if (path.empty()) return;
  SaveFile(
      printing.prompter,
      {.failure = Tr("The picture could not be written."), .path = path, .filter = prompt.filter},
      [&](const std::filesystem::path& to) {
        const PictureFormat format = FormatOf(to).value_or(PictureFormat::svg);
        ReplaceFile(printing.storage, to, make(format).toStdString());
      });
}

}  // namespace orvex
