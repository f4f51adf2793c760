#include <algorithm>
#include <exception>
#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>
#include <set>

#include "platform/core/base/text.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/core/graphics/png_writer.h"
#include "svg_command.h"
#include "svg_read_report.h"
#include "vector/vector_bitmap_writer.h"

namespace qx::cli {

namespace {

namespace fs = std::filesystem;

struct TRenderSize {
  int Width = 0;
  int Height = 0;
};

struct TRenderOptions {
  std::vector<std::string> Inputs;
  std::string Output;
  std::optional<TRenderSize> Size;
};

bool TryParseSide(const std::string& text, int& side) {
  std::int64_t value = 0;
  if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos) return false;
  if (!TryStrToInt(text, value) || value < 1 || value > TsvgExportFMXBitmapWithSkia::kMaxSide) return false;
  side = int(value);
  return true;
}

TRenderSize ParseSize(const std::string& text) {
  const std::size_t x = text.find_first_of("xX");
  TRenderSize size;
  if (x == std::string::npos || !TryParseSide(text.substr(0, x), size.Width) ||
      !TryParseSide(text.substr(x + 1), size.Height))
    throw EUsageError("--size wants WxH with sides from 1 to " + std::to_string(TsvgExportFMXBitmapWithSkia::kMaxSide) +
                      ", not \"" + text + "\"");
  return size;
}

TRenderOptions ParseOptions(const std::vector<std::string>& args) {
  TRenderOptions options;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& arg = args[i];
    const bool takesValue = arg == "-o" || arg == "--output" || arg == "--size";
    if (takesValue && i + 1 >= args.size()) throw EUsageError(arg + " needs a value");
    if (arg == "-o" || arg == "--output")
      options.Output = args[++i];
    else if (arg == "--size")
      options.Size = ParseSize(args[++i]);
    else if (IsOption(arg))
      throw EUsageError("unknown option \"" + arg + "\"");
    else
      options.Inputs.push_back(arg);
  }
  if (options.Inputs.empty()) throw EUsageError("no input given");
  if (options.Output.empty()) throw EUsageError("no output given (-o OUT.png or -o DIR)");
  return options;
}

// A .vector file is loaded as it stands; anything else is read as SVG, and a
// Failed read is not drawn, since its picture would be a fragment.
void LoadInput(const std::string& fileName, TqxVectorDocument& document) {
  if (EndsText(".vector", fileName)) {
    document.LoadFromFile(fileName);
    return;
  }
  const TsvgReadReport report = ReadSvgFile(fileName, document);
  if (report.Verdict != TqxResultParsing::Failed) return;
  std::string message = "the SVG read failed";
  if (report.HasError) message += ": " + report.Error;
  for (const std::string& line : report.Log) message += "\n  " + line;
  throw Exception(message);
}

// The document's own size in whole pixels, within the writer's limit; 0 when
// it has none.
int DocumentSide(double side) {
  if (!(side >= 1)) return 0;
  return int(Trunc(std::min<double>(side, TsvgExportFMXBitmapWithSkia::kMaxSide)));
}

void RenderOne(const std::string& input, const std::string& output, const std::optional<TRenderSize>& size) {
  TqxVectorDocument document;
  LoadInput(input, document);
  TRenderSize pixels{DocumentSide(document.Size.Width), DocumentSide(document.Size.Height)};
  if (size) pixels = *size;
  if (pixels.Width < 1 || pixels.Height < 1) throw Exception("the document has no size; give --size WxH");
  const std::unique_ptr<TqxBitmap> bitmap = RenderVectorDocument(document, pixels.Width, pixels.Height);
  TqxPngWriter::SaveToFile(*bitmap, output, TqxPngCompression::Fast);
}

}  // namespace

// Many inputs go into one folder in one process, so that thumbnail jobs pay
// the start-up once. One bad input does not stop the others.
int RunSvgRender(const std::vector<std::string>& args, std::ostream& /*out*/, std::ostream& err) {
  const TRenderOptions options = ParseOptions(args);
  const fs::path output = fs::u8path(options.Output);
  std::error_code error;
  const bool intoFolder = options.Inputs.size() > 1 || fs::is_directory(output, error) ||
                          options.Output.back() == '/';
  if (intoFolder) {
    fs::create_directories(output, error);
    if (error) throw Exception("Cannot create folder \"" + options.Output + "\": " + error.message());
  }

  int failures = 0;
  std::set<fs::path> written;
  for (const std::string& input : options.Inputs) {
    const fs::path target = intoFolder ? output / fs::u8path(input).stem().concat(".png") : output;
    try {
      if (!written.insert(target).second) throw Exception("another input already went to " + target.string());
      RenderOne(input, target.string(), options.Size);
    } catch (const std::exception& e) {
      err << input << ": " << e.what() << "\n";
      ++failures;
    }
  }
  return failures == 0 ? kExitOk : kExitWarnings;
}

}  // namespace qx::cli
