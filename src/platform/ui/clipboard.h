#pragma once

#include <string>

namespace qx {

// The platform's clipboard, as far as text goes.
class IqxClipboardService {
public:
  virtual ~IqxClipboardService() = default;
  virtual void SetText(const std::string& text) = 0;
  virtual std::string GetText() = 0;
};

// A clipboard of the process alone, for tests and tools without a desktop.
class TqxMemoryClipboard : public IqxClipboardService {
public:
  void SetText(const std::string& text) override { FText = text; }
  std::string GetText() override { return FText; }

private:
  std::string FText;
};

}  // namespace qx
