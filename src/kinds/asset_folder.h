#pragma once

#include <string>
#include <string_view>

#include "platform/core/assets/asset.h"

namespace qx {

// The folder of one asset under the assets folder, named after the asset:
// its name's folder parts, then its short name. All variants of a name share
// it. Everything written here stays inside the assets folder: a name that
// would lead out of it, and a symbolic link in the way, are refused with an
// Exception that names the asset, before anything is written.
//
// Files are replaced by writing a temporary file beside them and renaming it
// over them, never through a link, and only when their bytes would change, so
// a save that changes nothing touches nothing.
class TqxAssetFolder {
public:
  // Checks the asset's name; the disk is not looked at yet.
  TqxAssetFolder(const TqxAsset& asset, const std::string& rootPath);

  // The folder relative to the assets folder, with `\` separators.
  const std::string& Relative() const { return FRelative; }
  // The full path of the folder.
  const std::string& Full() const { return FFull; }

  // Creates the assets folder and this folder as needed. Raises Exception
  // "[Assets Designer]: Cannot create directory ..." when it can't.
  void Force() const;

  // The full name of a file in the folder; fileName must be one plain part.
  std::string FileName(const std::string& fileName) const;
  // What an asset's URI becomes for that file: Relative() + `\` + fileName.
  std::string Uri(const std::string& fileName) const;

  // Makes the file at destination a copy of source, unless both are the
  // same file or already hold the same bytes. Answers whether it wrote.
  // Raises Exception naming both files when the copy fails.
  bool CopyIn(const std::string& source, const std::string& destination) const;
  // Makes the file at destination hold the bytes, unless it already does.
  bool Write(std::string_view bytes, const std::string& destination) const;

  // An asset's URI as a path to read: a URI relative to the assets folder,
  // as a save leaves it, is taken from there.
  static std::string ResolveUri(const std::string& uri, const std::string& rootPath);

private:
  [[noreturn]] void Refuse(const std::string& reason) const;
  void RefuseLink(const std::string& path) const;

  std::string FAssetName;
  std::string FRoot;
  std::string FRelative;
  std::string FFull;
};

}  // namespace qx
