#include "platform/host/editor_view_host.h"

#include <gtest/gtest.h>

namespace qx {
namespace {

struct TFrameLog {
  int Made = 0;
  int Freed = 0;
};

class TTestFrame : public TCustomFrame {
public:
  explicit TTestFrame(TFrameLog& log) : FLog(log) { ++FLog.Made; }
  ~TTestFrame() override { ++FLog.Freed; }
  TFrameLog& FLog;
};

class TTestView : public INTACustomEditorView {
public:
  TTestView(std::string id, TFrameLog& log) : FId(std::move(id)), FLog(log) {}
  bool GetCanCloneView() override { return false; }
  std::shared_ptr<INTACustomEditorView> CloneEditorView() override { return nullptr; }
  std::string GetCaption() override { return FId; }
  std::string GetEditorWindowCaption() override { return FId; }
  std::string GetViewIdentifier() override { return FId; }
  unsigned GetEditState() override { return 0; }
  bool EditAction(TEditAction) override { return false; }
  void CloseAllCalled(bool&) override {}
  void SelectView() override {}
  void DeselectView() override {}
  TFrameClass GetFrameClass() override {
    return [this] { return std::make_unique<TTestFrame>(FLog); };
  }
  void FrameCreated(TCustomFrame* frame) override { FFrames.push_back(frame); }
  int GetImageIndex() override { return -1; }
  std::string GetTabHintText() override { return {}; }
  void Close(bool& allowed) override {
    ++FCloseAsked;
    allowed = FAllowClose;
  }
  TColor GetTabColor() override { return 0; }

  std::string FId;
  TFrameLog& FLog;
  std::vector<TCustomFrame*> FFrames;
  bool FAllowClose = true;
  int FCloseAsked = 0;
};

TEST(EditorViewHostTest, OneTabPerIdentifierWithAHostMadeFrameClosedAsTheViewAllows) {
  TFrameLog log;
  TqxEditorViewHost host;
  std::vector<std::string> shown;
  host.FOnViewShown = [&](INTACustomEditorView& v, TCustomFrame&) { shown.push_back(v.GetCaption()); };
  auto a = std::make_shared<TTestView>("a", log);
  auto b = std::make_shared<TTestView>("b", log);
  auto twin = std::make_shared<TTestView>("a", log);
  host.ShowEditorView(a);
  host.ShowEditorView(b);
  host.ShowEditorView(twin);  // brings a's tab up; the twin is not kept
  EXPECT_EQ(log.Made, 2);
  ASSERT_EQ(a->FFrames.size(), 1u);
  EXPECT_EQ(a->FFrames[0], host.FrameOf(a.get()));
  EXPECT_TRUE(twin->FFrames.empty());
  EXPECT_EQ(host.ActiveView(), a.get());
  EXPECT_EQ(shown, (std::vector<std::string>{"a", "b", "a"}));

  b->FAllowClose = false;
  EXPECT_FALSE(host.CloseAll());  // b stays, a goes
  EXPECT_EQ(host.Count(), 1u);
  EXPECT_EQ(log.Freed, 1);
  EXPECT_EQ(host.ActiveView(), b.get());
  EXPECT_FALSE(host.CloseEditorView(a)) << "not open any more";
  b->FAllowClose = true;
  EXPECT_TRUE(host.CloseEditorView(b));
  EXPECT_EQ(log.Freed, 2);
  EXPECT_EQ(host.ActiveView(), nullptr);
  EXPECT_EQ(b->FCloseAsked, 2);
}

}  // namespace
}  // namespace qx
