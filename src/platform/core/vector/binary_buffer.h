#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qx {

// Little-endian encoding into a byte string, whatever the host's byte order.
class TqxBinaryWriter {
public:
  void WriteU8(std::uint8_t value) { FBytes.push_back(static_cast<char>(value)); }
  void WriteU16(std::uint16_t value);
  void WriteU32(std::uint32_t value);
  void WriteF32(float value);
  // u32 byte count, then the bytes.
  void WriteString(std::string_view value);
  void WriteBytes(std::string_view bytes) { FBytes.append(bytes); }

  std::size_t Size() const { return FBytes.size(); }
  // Overwrites four bytes already written, for lengths known only at the end.
  void PatchU32(std::size_t offset, std::uint32_t value);
  const std::string& Bytes() const { return FBytes; }

private:
  std::string FBytes;
};

// Little-endian decoding of an untrusted byte range. Every read checks the bytes
// that remain first; any fault raises Exception naming the source, the absolute
// byte offset and what was being read.
class TqxBinaryReader {
public:
  // `bytes` is the whole file; reading starts at `begin` and may not pass `end`.
  TqxBinaryReader(std::string_view bytes, std::size_t begin, std::size_t end, std::string sourceName);

  std::size_t Offset() const { return FOffset; }
  std::size_t Remaining() const { return FEnd - FOffset; }

  std::uint8_t ReadU8(std::string_view what);
  std::uint16_t ReadU16(std::string_view what);
  std::uint32_t ReadU32(std::string_view what);
  float ReadF32(std::string_view what);
  bool ReadBool(std::string_view what);
  // Length-prefixed; the content must be valid UTF-8.
  std::string ReadString(std::string_view what);
  // A count of items of at least `minItemSize` bytes each, refused when the
  // remaining bytes could not hold them, so nothing is allocated from a lie.
  std::uint32_t ReadCount(std::size_t minItemSize, std::string_view what);

  [[noreturn]] void Fail(std::size_t offset, std::string_view problem) const;

private:
  void Require(std::size_t count, std::string_view what) const;
  std::uint32_t TakeU32();

  std::string_view FBytes;
  std::size_t FOffset;
  std::size_t FEnd;
  std::string FSourceName;
};

}  // namespace qx
