#include "platform/core/assets/assets_factory.h"

#include "platform/core/assets/assets_config_reader.h"
#include "platform/core/assets/assets_config_writer.h"
#include "platform/core/assets/assets_manager.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/file_io.h"

namespace qx {

void TqxAssetsFactory::LoadFromFile(TqxAssetsManager& manager, const std::string& fileName) {
  std::string text;
  try {
    text = TqxFileIO::ReadAll(fileName);
  } catch (const Exception& e) {
    throw Exception(TqxAssetsConfigReader::MessagePrefix(fileName) + "cannot open the file (" + e.Message() + ")");
  }
  // Everything is read and checked before the manager is touched.
  auto assets = TqxAssetsConfigReader::Read(text, fileName);
  manager.Clear();
  for (auto& asset : assets) manager.Add(std::move(asset));
}

namespace {

void Save(const TqxAssetsManager& manager, const std::string& fileName, const TqxPlatforms* platforms,
          const TqxWritingOptions& options) {
  std::string text;
  try {
    text = TqxAssetsConfigWriter::Write(manager, fileName, platforms, options);
  } catch (const Exception& e) {
    // Names and URIs that aren't UTF-8 can't be written as JSON.
    throw Exception("Cannot write the assets config \"" + fileName + "\": " + e.Message());
  }
  TqxFileIO::WriteAtomically(fileName, text);
}

}  // namespace

void TqxAssetsFactory::SaveConfigToFile(const TqxAssetsManager& manager, const std::string& fileName,
                                        const TqxWritingOptions& options) {
  Save(manager, fileName, nullptr, options);
}

void TqxAssetsFactory::SaveConfigToFile(const TqxAssetsManager& manager, const std::string& fileName,
                                        const TqxPlatforms& platforms, const TqxWritingOptions& options) {
  Save(manager, fileName, &platforms, options);
}

}  // namespace qx
