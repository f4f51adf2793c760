#include "platform/core/vector/binary_buffer.h"

#include <bit>
#include <utility>

#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"

namespace qx {

void TqxBinaryWriter::WriteU16(std::uint16_t value) {
  WriteU8(static_cast<std::uint8_t>(value));
  WriteU8(static_cast<std::uint8_t>(value >> 8));
}

void TqxBinaryWriter::WriteU32(std::uint32_t value) {
  for (int shift = 0; shift < 32; shift += 8) WriteU8(static_cast<std::uint8_t>(value >> shift));
}

void TqxBinaryWriter::WriteF32(float value) { WriteU32(std::bit_cast<std::uint32_t>(value)); }

void TqxBinaryWriter::WriteString(std::string_view value) {
  WriteU32(static_cast<std::uint32_t>(value.size()));
  FBytes.append(value);
}

void TqxBinaryWriter::PatchU32(std::size_t offset, std::uint32_t value) {
  for (int i = 0; i < 4; ++i) FBytes[offset + i] = static_cast<char>(value >> (8 * i));
}

TqxBinaryReader::TqxBinaryReader(std::string_view bytes, std::size_t begin, std::size_t end,
                                 std::string sourceName)
    : FBytes(bytes), FOffset(begin), FEnd(end), FSourceName(std::move(sourceName)) {}

void TqxBinaryReader::Fail(std::size_t offset, std::string_view problem) const {
  throw Exception(Format("Cannot read the vector file \"%s\" at byte %d: %s",
                         {FSourceName, static_cast<std::int64_t>(offset), problem}));
}

void TqxBinaryReader::Require(std::size_t count, std::string_view what) const {
  if (count > Remaining())
    Fail(FOffset, Format("%s needs %d bytes, only %d remain",
                         {what, static_cast<std::int64_t>(count),
                          static_cast<std::int64_t>(Remaining())}));
}

std::uint8_t TqxBinaryReader::ReadU8(std::string_view what) {
  Require(1, what);
  return static_cast<std::uint8_t>(FBytes[FOffset++]);
}

std::uint16_t TqxBinaryReader::ReadU16(std::string_view what) {
  Require(2, what);
  const auto low = static_cast<std::uint8_t>(FBytes[FOffset]);
  const auto high = static_cast<std::uint8_t>(FBytes[FOffset + 1]);
  FOffset += 2;
  return static_cast<std::uint16_t>(low | (high << 8));
}

std::uint32_t TqxBinaryReader::TakeU32() {
  std::uint32_t value = 0;
  for (int i = 0; i < 4; ++i)
    value |= static_cast<std::uint32_t>(static_cast<std::uint8_t>(FBytes[FOffset + i])) << (8 * i);
  FOffset += 4;
  return value;
}

std::uint32_t TqxBinaryReader::ReadU32(std::string_view what) {
  Require(4, what);
  return TakeU32();
}

float TqxBinaryReader::ReadF32(std::string_view what) {
  Require(4, what);
  return std::bit_cast<float>(TakeU32());
}

bool TqxBinaryReader::ReadBool(std::string_view what) {
  const std::size_t at = FOffset;
  const std::uint8_t value = ReadU8(what);
  if (value > 1) Fail(at, Format("%s is %d, not 0 or 1", {what, value}));
  return value == 1;
}

std::string TqxBinaryReader::ReadString(std::string_view what) {
  const std::size_t at = FOffset;
  const std::uint32_t length = ReadCount(1, Format("the length of %s", {what}));
  std::string value(FBytes.substr(FOffset, length));
  if (!IsValidUtf8(value)) Fail(at, Format("%s is not valid UTF-8", {what}));
  FOffset += length;
  return value;
}

std::uint32_t TqxBinaryReader::ReadCount(std::size_t minItemSize, std::string_view what) {
  const std::size_t at = FOffset;
  const std::uint32_t count = ReadU32(what);
  if (static_cast<std::uint64_t>(count) * minItemSize > Remaining())
    Fail(at, Format("%s is %u, more than the %d remaining bytes can hold",
                    {what, count, static_cast<std::int64_t>(Remaining())}));
  return count;
}

}  // namespace qx
