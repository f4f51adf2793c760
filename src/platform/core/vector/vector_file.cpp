#include "platform/core/vector/vector_file.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <system_error>

#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"
#include "platform/core/vector/vector_document.h"
#include "platform/core/vector/vector_file_decoder.h"
#include "platform/core/vector/vector_file_encoder.h"

namespace qx {

namespace {

[[noreturn]] void FailWrite(const std::string& fileName, const std::string& problem) {
  throw Exception(Format("Cannot write the vector file \"%s\": %s", {fileName, problem}));
}

std::string EncodeFor(const TqxVectorDocument& document, const std::string& target) {
  try {
    return TqxVectorFileEncoder::Encode(document);
  } catch (const EqxAssertError&) {
    throw;
  } catch (const Exception& e) {
    FailWrite(target, e.Message());
  }
}

std::filesystem::path TemporaryPathBeside(const std::filesystem::path& target) {
  std::random_device random;
  std::filesystem::path temporary = target;
  temporary += Format(".%x.tmp", {static_cast<std::int64_t>(random())});
  return temporary;
}

}  // namespace

std::string TqxVectorFile::Encode(const TqxVectorDocument& document) {
  return EncodeFor(document, "(memory)");
}

void TqxVectorFile::Write(const TqxVectorDocument& document, std::ostream& stream) {
  const std::string bytes = EncodeFor(document, "(stream)");
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!stream) FailWrite("(stream)", "the stream refused the data");
}

void TqxVectorFile::Save(const TqxVectorDocument& document, const std::string& fileName) {
  const std::string bytes = EncodeFor(document, fileName);
  const std::filesystem::path target(fileName);
  const std::filesystem::path temporary = TemporaryPathBeside(target);
  {
    std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
    if (!out) FailWrite(fileName, "the temporary file cannot be created");
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) {
      std::error_code ignored;
      std::filesystem::remove(temporary, ignored);
      FailWrite(fileName, "the temporary file cannot be written");
    }
  }
  std::error_code error;
  std::filesystem::rename(temporary, target, error);
  if (error) {
    std::error_code ignored;
    std::filesystem::remove(temporary, ignored);
    FailWrite(fileName, error.message());
  }
}

void TqxVectorFile::Decode(TqxVectorDocument& document, std::string_view bytes,
                           const std::string& sourceName) {
  TqxVectorFileDecoder::Decode(document, bytes, sourceName);
}

void TqxVectorFile::Read(TqxVectorDocument& document, std::istream& stream,
                         const std::string& sourceName) {
  std::ostringstream buffer;
  buffer << stream.rdbuf();
  if (stream.bad())
    throw Exception(Format("Cannot read the vector file \"%s\": the stream failed", {sourceName}));
  Decode(document, buffer.str(), sourceName);
}

void TqxVectorFile::Load(TqxVectorDocument& document, const std::string& fileName) {
  std::ifstream in(std::filesystem::path(fileName), std::ios::binary);
  if (!in) throw Exception(Format("Cannot open the vector file \"%s\"", {fileName}));
  const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (in.bad()) throw Exception(Format("Cannot read the vector file \"%s\"", {fileName}));
  Decode(document, bytes, fileName);
}

}  // namespace qx
