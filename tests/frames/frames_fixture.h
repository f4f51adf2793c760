#pragma once

#include <gtest/gtest.h>

#include "frames/register_frames.h"
#include "kinds/assets_editors_manager.h"
#include "platform/core/base/translator.h"
#include "platform/ui/headless_ui.h"

namespace qx::test {

// Kinds and frames registered, headless dialogs and popups, English texts.
class FramesTest : public ::testing::Test {
protected:
  void SetUp() override {
    RegisterAssetEditors();
    RegisterAssetEditorFrames();
    FOldLanguage = TqxTranslator::Language();
    TqxTranslator::SetLanguage(TqxLanguage::English);
  }
  void TearDown() override { TqxTranslator::SetLanguage(FOldLanguage); }

  TqxHeadlessUi Ui;

private:
  TqxLanguage FOldLanguage = TqxLanguage::English;
};

}  // namespace qx::test
