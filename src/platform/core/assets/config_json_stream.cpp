#include "platform/core/assets/config_json_stream.h"

#include <vector>

namespace qx {
namespace {

using TJson = TqxJsonStream::TJson;

// Builds a document from parser events, as nlohmann's own parser does.
class TBuilder {
public:
  template <class V>
  TJson* Put(V&& value) {
    if (FStack.empty()) {
      FRoot = TJson(std::forward<V>(value));
      return &FRoot;
    }
    TJson& top = *FStack.back();
    if (top.is_array()) {
      top.emplace_back(std::forward<V>(value));
      return &top.back();
    }
    TJson& slot = top[FKey];
    slot = TJson(std::forward<V>(value));
    return &slot;
  }
  void Begin(TJson&& container) { FStack.push_back(Put(std::move(container))); }
  void End() { FStack.pop_back(); }
  void SetKey(std::string key) { FKey = std::move(key); }
  std::size_t Depth() const { return FStack.size(); }
  TJson& Root() { return FRoot; }
  void Reset() {
    FRoot = TJson();
    FStack.clear();
  }

private:
  TJson FRoot;
  std::vector<TJson*> FStack;
  std::string FKey;
};

class THandler : public nlohmann::json_sax<TJson> {
public:
  THandler(const std::string& streamedKey, const TqxJsonStream::TOnStart& onStart,
           const TqxJsonStream::TOnElement& onElement, TqxJsonStream::TResult& result)
      : FStreamedKey(streamedKey), FOnStart(onStart), FOnElement(onElement), FResult(result) {}

  bool null() override { return Scalar(nullptr); }
  bool boolean(bool value) override { return Scalar(value); }
  bool number_integer(number_integer_t value) override { return Scalar(value); }
  bool number_unsigned(number_unsigned_t value) override { return Scalar(value); }
  bool number_float(number_float_t value, const string_t&) override { return Scalar(value); }
  bool string(string_t& value) override { return Scalar(std::move(value)); }
  bool binary(binary_t& value) override { return Scalar(TJson::binary(std::move(value))); }

  bool start_object(std::size_t) override { return Open(TJson::object(), false); }
  bool start_array(std::size_t) override { return Open(TJson::array(), true); }
  bool end_object() override { return Close(); }
  bool end_array() override { return Close(); }

  bool key(string_t& key) override {
    if (FInElement) {
      FElement.SetKey(std::move(key));
    } else {
      FKeyIsStreamed = FHead.Depth() == 1 && key == FStreamedKey && !FResult.Streamed;
      FHead.SetKey(std::move(key));
    }
    return true;
  }

  bool parse_error(std::size_t position, const std::string&, const nlohmann::detail::exception& e) override {
    // position counts the bytes read, the offending one included.
    FResult.ErrorOffset = position == 0 ? 0 : position - 1;
    FResult.ErrorText = e.what();
    return false;
  }

  void Finish() { FResult.Document = std::move(FHead.Root()); }

private:
  template <class V>
  bool Scalar(V&& value) {
    if (FInElement) {
      FElement.Put(std::forward<V>(value));
    } else if (FStreaming) {
      FOnElement(TJson(std::forward<V>(value)), FIndex++);
    } else {
      FKeyIsStreamed = false;
      FHead.Put(std::forward<V>(value));
    }
    return true;
  }

  bool Open(TJson&& container, bool isArray) {
    if (FInElement) {
      FElement.Begin(std::move(container));
    } else if (FStreaming) {
      FElement.Reset();
      FElement.Begin(std::move(container));
      FInElement = true;
    } else if (isArray && FKeyIsStreamed && FOnStart(FHead.Root())) {
      FKeyIsStreamed = false;
      FStreaming = true;
      FResult.Streamed = true;
    } else {
      FKeyIsStreamed = false;
      FHead.Begin(std::move(container));
    }
    return true;
  }

  bool Close() {
    if (FInElement) {
      FElement.End();
      if (FElement.Depth() == 0) {
        FInElement = false;
        FOnElement(FElement.Root(), FIndex++);
      }
    } else if (FStreaming) {
      FStreaming = false;
    } else {
      FHead.End();
    }
    return true;
  }

  const std::string& FStreamedKey;
  const TqxJsonStream::TOnStart& FOnStart;
  const TqxJsonStream::TOnElement& FOnElement;
  TqxJsonStream::TResult& FResult;
  TBuilder FHead;
  TBuilder FElement;
  bool FKeyIsStreamed = false;
  bool FStreaming = false;
  bool FInElement = false;
  std::size_t FIndex = 0;
};

}  // namespace

TqxJsonStream::TResult TqxJsonStream::Parse(std::string_view text, const std::string& streamedKey,
                                            const TOnStart& onStart, const TOnElement& onElement) {
  TResult result;
  THandler handler(streamedKey, onStart, onElement, result);
  result.Ok = TJson::sax_parse(text.begin(), text.end(), &handler);
  if (result.Ok) handler.Finish();
  return result;
}

}  // namespace qx
