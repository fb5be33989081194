// Paints the page of a very long class, whole and zoomed in.

#include <benchmark/benchmark.h>

#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>

#include "long_class.h"
#include "reports/class_picture.h"
#include "ui/picture/ClassPage.h"

namespace orvex {
namespace {

void PaintPage(benchmark::State& state) {
  const LongClass shown(6000, 50);
  const ClassPage page(MakeClassPicture({}, shown.episodes, &shown.log));
  PageView view = page.Whole();
  view.shown.end /= static_cast<double>(state.range(0));
  QImage image(1366, 700, QImage::Format_RGB32);
  for (auto _ : state) {
    QPainter painter(&image);
    page.Paint(painter, QRectF(image.rect()), QFont(), QPalette(), view);
  }
}
BENCHMARK(PaintPage)->ArgName("zoomed")->Arg(1)->Arg(4)->Arg(50)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace orvex

int main(int argc, char* argv[]) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
