#include "platform/core/assets/assets_config_reader.h"

#include <nlohmann/json.hpp>

#include <cstdlib>
#include <unordered_map>

#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_lottie_animation.h"
#include "platform/core/assets/asset_name_helper.h"
#include "platform/core/assets/asset_style.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/assets/asset_targets.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/assets/assets_factory.h"
#include "platform/core/assets/config_json_stream.h"
#include "platform/core/assets/config_uris.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"

namespace qx {
namespace {

using TJson = TqxJsonStream::TJson;

// Where a value sits in the document. Places live on the stack of the walk and
// are turned into text only for a message.
struct TPlace {
  const TPlace* Parent = nullptr;
  const char* Key = nullptr;  // nullptr: an element of an array
  std::size_t Index = 0;

  TPlace Member(const char* key) const { return {this, key, 0}; }
  TPlace Element(std::size_t index) const { return {this, nullptr, index}; }

  std::string Text() const {
    std::string parent = Parent ? Parent->Text() : std::string();
    if (!Key) return parent + "[" + std::to_string(Index) + "]";
    return parent.empty() ? std::string(Key) : parent + "." + Key;
  }
};

// Line and column (both from 1, the column in characters) of a byte offset.
std::pair<std::size_t, std::size_t> LineAndColumn(std::string_view text, std::size_t offset) {
  offset = std::min(offset, text.size());
  std::size_t line = 1, column = 1;
  for (std::size_t i = 0; i < offset; ++i) {
    const auto c = static_cast<unsigned char>(text[i]);
    if (c == '\n') {
      ++line;
      column = 1;
    } else if ((c & 0xC0) != 0x80) {
      ++column;
    }
  }
  return {line, column};
}

// The offset of the first byte that isn't part of a well-formed UTF-8
// sequence, or npos.
std::size_t FirstInvalidUtf8(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size()) {
    const auto c = static_cast<unsigned char>(text[i]);
    std::size_t length = c < 0x80 ? 1 : (c >> 5) == 0x6 ? 2 : (c >> 4) == 0xE ? 3 : (c >> 3) == 0x1E ? 4 : 0;
    if (length == 0 || i + length > text.size() || !IsValidUtf8(text.substr(i, length))) return i;
    i += length;
  }
  return std::string_view::npos;
}

std::string Shown(const TJson& value) {
  std::string text = value.dump(-1, ' ', false, TJson::error_handler_t::replace);
  if (text.size() > 40) text = text.substr(0, 37) + "...";
  return text;
}

bool IsKnownKind(const std::string& kind) {
  for (const char* known : {TqxAssetColor::kType, TqxAssetBitmapSet::kType, TqxAssetFont::kType,
                            TqxAssetLottieAnimation::kType, TqxAssetStyle::kType, TqxAssetSVG::kType,
                            TqxAssetFile::kType, TqxAssetThemeContainer::kType}) {
    if (kind == known) return true;
  }
  return false;
}

class TReader {
public:
  TReader(const std::string& fileName, std::size_t expectedVariants) : FFileName(fileName), FUris(fileName) {
    FAssets.reserve(expectedVariants);
    FSeen.reserve(expectedVariants);
  }

  // The format and version, once the root holds them.
  void CheckHeader(const TJson& root) const;
  void ReadEntry(const TJson& entry, std::size_t index);
  // The entries of a document read whole.
  void ReadEntries(const TJson& root);
  std::vector<std::unique_ptr<TqxAsset>> TakeAssets() { return std::move(FAssets); }

private:
  [[noreturn]] void Fail(const TPlace& place, const std::string& what) const {
    throw Exception(TqxAssetsConfigReader::MessagePrefix(FFileName) + place.Text() + ": " + what);
  }
  [[noreturn]] void Expected(const TPlace& place, const char* what, const TJson& found) const {
    Fail(place, std::string("expected ") + what + ", found " + Shown(found));
  }

  const TJson& Field(const TJson& object, const char* key, const TPlace& place) const {
    auto it = object.find(key);
    if (it == object.end()) Fail(place.Member(key), "missing field");
    return *it;
  }
  const TJson& Object(const TJson& value, const TPlace& place) const {
    if (!value.is_object()) Expected(place, "an object", value);
    return value;
  }
  const TJson& Array(const TJson& value, const TPlace& place) const {
    if (!value.is_array()) Expected(place, "an array", value);
    return value;
  }
  const std::string& String(const TJson& object, const char* key, const TPlace& place) const {
    const TJson& value = Field(object, key, place);
    if (!value.is_string()) Expected(place.Member(key), "a string", value);
    return value.get_ref<const std::string&>();
  }
  double Number(const TJson& object, const char* key, const TPlace& place) const {
    const TJson& value = Field(object, key, place);
    if (!value.is_number()) Expected(place.Member(key), "a number", value);
    return value.get<double>();
  }
  int Integer(const TJson& object, const char* key, const TPlace& place) const {
    const TJson& value = Field(object, key, place);
    if (!value.is_number_integer() || value.get<std::int64_t>() < INT32_MIN || value.get<std::int64_t>() > INT32_MAX) {
      Expected(place.Member(key), "an integer", value);
    }
    return value.get<int>();
  }
  TAlphaColor Color(const TJson& value, const TPlace& place) const;
  std::string Uri(const TJson& object, const char* key, const TPlace& place) const {
    return FUris.ToFull(String(object, key, place));
  }

  std::unique_ptr<TqxAsset> ReadVariant(const std::string& kind, const TqxAssetName& name, const TJson& variant,
                                        const TPlace& place) const;
  void ReadBitmaps(TqxAssetBitmapSet& set, const TJson& variant, const TPlace& place) const;

  const std::string& FFileName;
  TqxConfigUris FUris;
  std::vector<std::unique_ptr<TqxAsset>> FAssets;
  // Where each variant was read, to name both places of a duplicate.
  std::unordered_map<std::string, std::pair<std::size_t, std::size_t>> FSeen;
};

void TReader::ReadEntries(const TJson& root) {
  const TPlace assetsPlace = TPlace{}.Member("assets");
  const TJson& assets = Array(Field(root, "assets", TPlace{}), assetsPlace);
  for (std::size_t a = 0; a < assets.size(); ++a) ReadEntry(assets[a], a);
}

TAlphaColor TReader::Color(const TJson& value, const TPlace& place) const {
  const char* what = "a colour \"#AARRGGBB\"";
  if (!value.is_string()) Expected(place, what, value);
  const auto& text = value.get_ref<const std::string&>();
  if (text.size() != 9 || text[0] != '#') Expected(place, what, value);
  TAlphaColor color = 0;
  for (std::size_t i = 1; i < 9; ++i) {
    const char c = text[i];
    int digit = c >= '0' && c <= '9' ? c - '0' : c >= 'a' && c <= 'f' ? c - 'a' + 10 : c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
    if (digit < 0) Expected(place, what, value);
    color = color << 4 | static_cast<TAlphaColor>(digit);
  }
  return color;
}

void TReader::CheckHeader(const TJson& root) const {
  const std::string prefix = TqxAssetsConfigReader::MessagePrefix(FFileName);
  if (!root.is_object()) {
    throw Exception(prefix + "not an assets config (the text is not a JSON object)");
  }
  auto format = root.find("format");
  if (format == root.end() || !format->is_string() || *format != TqxAssetsFactory::kFormatName) {
    throw Exception(prefix + "not an assets config (\"format\" is " +
                    (format == root.end() ? std::string("missing") : Shown(*format)) + ", expected \"" +
                    TqxAssetsFactory::kFormatName + "\")");
  }
  const int version = Integer(root, "version", TPlace{});
  if (version > TqxAssetsFactory::kFormatVersion) {
    throw Exception(prefix + Format("format version %d is newer than this program reads (%d)",
                                    {version, TqxAssetsFactory::kFormatVersion}));
  }
  if (version < 1) Fail(TPlace{}.Member("version"), Format("unknown format version %d", {version}));
}

void TReader::ReadEntry(const TJson& element, std::size_t index) {
  const TPlace entryPlace = TPlace{}.Member("assets").Element(index);
  const TJson& entry = Object(element, entryPlace);
  const std::string& name = String(entry, "name", entryPlace);
  if (!TqxAssetNameHelper::IsValid(name) || TqxAssetNameHelper::Normalize(name) != name) {
    Fail(entryPlace.Member("name"), "not a valid asset name: " + Shown(entry["name"]));
  }
  const std::string& kind = String(entry, "kind", entryPlace);
  if (!IsKnownKind(kind)) Fail(entryPlace.Member("kind"), "unknown kind \"" + kind + "\"");
  const TPlace variantsPlace = entryPlace.Member("variants");
  const TJson& variants = Array(Field(entry, "variants", entryPlace), variantsPlace);
  if (variants.empty()) Fail(variantsPlace, "an asset needs at least one variant");
  for (std::size_t v = 0; v < variants.size(); ++v) {
    const TPlace variantPlace = variantsPlace.Element(v);
    auto asset = ReadVariant(kind, name, Object(variants[v], variantPlace), variantPlace);
    // Name, platform and device class: what makes the manager's id.
    std::string key = name;
    key += '\n';
    key += static_cast<char>('0' + asset->Platform());
    key += static_cast<char>('0' + asset->DeviceClass());
    auto [it, added] = FSeen.try_emplace(std::move(key), index, v);
    if (!added) {
      Fail(variantPlace, Format("duplicate of assets[%d].variants[%d] (%s, %s, %s)",
                                {it->second.first, it->second.second, name,
                                 TqxAssetTargets::PlatformKey(asset->Platform()),
                                 TqxAssetTargets::DeviceClassKey(asset->DeviceClass())}));
    }
    FAssets.push_back(std::move(asset));
  }
}

std::unique_ptr<TqxAsset> TReader::ReadVariant(const std::string& kind, const TqxAssetName& name,
                                               const TJson& variant, const TPlace& place) const {
  TqxPlatform platform = kPlatformAny;
  const std::string& platformKey = String(variant, "platform", place);
  if (!TqxAssetTargets::TryParsePlatformKey(platformKey, platform)) {
    Expected(place.Member("platform"), "\"any\", \"android\" or \"ios\"", variant["platform"]);
  }
  TqxDeviceClass deviceClass = kDeviceClassAny;
  const std::string& deviceClassKey = String(variant, "deviceClass", place);
  if (!TqxAssetTargets::TryParseDeviceClassKey(deviceClassKey, deviceClass)) {
    Expected(place.Member("deviceClass"), "a device class (\"any\", \"phone-small\", ...)", variant["deviceClass"]);
  }

  if (kind == TqxAssetColor::kType) {
    return std::make_unique<TqxAssetColor>(name, platform, deviceClass,
                                           Color(Field(variant, "color", place), place.Member("color")));
  }
  if (kind == TqxAssetBitmapSet::kType) {
    auto set = std::make_unique<TqxAssetBitmapSet>(name, platform, deviceClass);
    ReadBitmaps(*set, variant, place);
    return set;
  }
  if (kind == TqxAssetFont::kType) {
    auto font = std::make_unique<TqxAssetFont>(name, platform, deviceClass);
    font->SetUri(Uri(variant, "uri", place));
    return font;
  }
  if (kind == TqxAssetLottieAnimation::kType) {
    auto lottie = std::make_unique<TqxAssetLottieAnimation>(name, platform, deviceClass);
    lottie->SetUri(Uri(variant, "uri", place));
    return lottie;
  }
  if (kind == TqxAssetFile::kType) {
    auto file = std::make_unique<TqxAssetFile>(name, platform, deviceClass);
    file->SetUri(Uri(variant, "uri", place));
    TqxFileLocation location;
    if (!TqxAssetFile::TryParse(String(variant, "location", place), location)) {
      Expected(place.Member("location"), "\"bundle\", \"documents\" or \"cache\"", variant["location"]);
    }
    TqxExtractionRule rule;
    if (!TqxAssetFile::TryParse(String(variant, "extraction", place), rule)) {
      Expected(place.Member("extraction"), "\"if-missing\", \"on-new-version\" or \"always\"", variant["extraction"]);
    }
    file->SetFileLocation(location);
    file->SetExtractionRule(rule);
    return file;
  }
  if (kind == TqxAssetStyle::kType) {
    auto style = std::make_unique<TqxAssetStyle>(name, platform, deviceClass);
    style->SetUri(Uri(variant, "uri", place));
    style->SetTargetClassName(String(variant, "targetClass", place));
    return style;
  }
  if (kind == TqxAssetSVG::kType) {
    auto svg = std::make_unique<TqxAssetSVG>(name, platform, deviceClass);
    svg->SetSVGUri(Uri(variant, "svgUri", place));
    svg->SetVectorUri(Uri(variant, "vectorUri", place));
    const TPlace sizePlace = place.Member("size");
    const TJson& size = Object(Field(variant, "size", place), sizePlace);
    svg->SetSize({Number(size, "width", sizePlace), Number(size, "height", sizePlace)});
    return svg;
  }
  if (kind == TqxAssetThemeContainer::kType) {
    return std::make_unique<TqxAssetThemeContainer>(name, platform, deviceClass);
  }
  Fail(place, "unknown kind \"" + kind + "\"");
}

void TReader::ReadBitmaps(TqxAssetBitmapSet& set, const TJson& variant, const TPlace& place) const {
  const TPlace bitmapsPlace = place.Member("bitmaps");
  const TJson& bitmaps = Array(Field(variant, "bitmaps", place), bitmapsPlace);
  for (std::size_t b = 0; b < bitmaps.size(); ++b) {
    const TPlace infoPlace = bitmapsPlace.Element(b);
    const TJson& item = Object(bitmaps[b], infoPlace);
    const double scale = Number(item, "scale", infoPlace);
    if (!(scale > 0 && scale <= 100)) Expected(infoPlace.Member("scale"), "a scale above 0", item["scale"]);
    if (set.Contains(static_cast<float>(scale))) Fail(infoPlace.Member("scale"), "the same scale twice in a set");
    auto info = std::make_unique<TqxBitmapInfo>(Uri(item, "uri", infoPlace), static_cast<float>(scale));
    if (auto insets = item.find("capInsets"); insets != item.end()) {
      const TPlace insetsPlace = infoPlace.Member("capInsets");
      Object(*insets, insetsPlace);
      info->SetCapInsets({Integer(*insets, "left", insetsPlace), Integer(*insets, "top", insetsPlace),
                          Integer(*insets, "right", insetsPlace), Integer(*insets, "bottom", insetsPlace)});
    }
    if (auto tint = item.find("tint"); tint != item.end()) {
      info->SetTintColor(Color(*tint, infoPlace.Member("tint")));
    }
    set.Add(std::move(info));
  }
}

// The message of a syntax error without nlohmann's own prefix and position.
std::string SyntaxErrorText(const std::string& what) {
  const std::size_t position = what.find(": ", what.find("parse error"));
  return position == std::string::npos ? what : what.substr(position + 2);
}

}  // namespace

std::string TqxAssetsConfigReader::MessagePrefix(const std::string& fileName) {
  return "Cannot read the assets config \"" + fileName + "\": ";
}

std::vector<std::unique_ptr<TqxAsset>> TqxAssetsConfigReader::Read(std::string_view text,
                                                                   const std::string& fileName) {
  // A variant takes some 150 bytes of text or more.
  TReader reader(fileName, text.size() / 150);
  // The entries are read as the parser meets them, once the header has been
  // checked; a file whose header comes later is read whole first.
  auto onStart = [&](const TJson& head) {
    if (!head.contains("format") || !head.contains("version")) return false;
    reader.CheckHeader(head);
    return true;
  };
  auto onEntry = [&](const TJson& entry, std::size_t index) { reader.ReadEntry(entry, index); };
  TqxJsonStream::TResult parsed = TqxJsonStream::Parse(text, "assets", onStart, onEntry);
  if (!parsed.Ok) {
    // nlohmann stops at the first bad byte too, but calls it a syntax error.
    const std::size_t bad = FirstInvalidUtf8(text);
    if (bad != std::string_view::npos && bad <= parsed.ErrorOffset) {
      auto [line, column] = LineAndColumn(text, bad);
      throw Exception(MessagePrefix(fileName) + Format("not valid UTF-8 at line %d, column %d", {line, column}));
    }
    auto [line, column] = LineAndColumn(text, parsed.ErrorOffset);
    throw Exception(MessagePrefix(fileName) +
                    Format("line %d, column %d: %s", {line, column, SyntaxErrorText(parsed.ErrorText)}));
  }
  reader.CheckHeader(parsed.Document);
  if (!parsed.Streamed) {
    reader.ReadEntries(parsed.Document);
  } else if (parsed.Document.contains("assets")) {
    throw Exception(MessagePrefix(fileName) + "assets: the field appears twice");
  }
  return reader.TakeAssets();
}

}  // namespace qx
