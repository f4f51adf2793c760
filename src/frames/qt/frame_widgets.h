#pragma once

#include <QTimer>
#include <QWidget>

namespace qx {

class TBaseAssetEditorFrame;
class TBaseEditorSinglePreview;
class TEditorLottieAnimation;

// Shows a single-preview frame: the box drawn by the frame, the title under
// it, the frame's hint as tooltip. A click on the box opens the frame's editor.
class TqxSinglePreviewWidget : public QWidget {
  Q_OBJECT
public:
  TqxSinglePreviewWidget(TBaseEditorSinglePreview& frame, QWidget* parent = nullptr);
  ~TqxSinglePreviewWidget() override;

protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

private:
  void FrameRepainted();
  TBaseEditorSinglePreview& FFrame;
};

// Shows a Lottie frame: the animation plays over the dashed box; a click opens
// the picker.
class TqxLottieFrameWidget : public QWidget {
  Q_OBJECT
public:
  TqxLottieFrameWidget(TEditorLottieAnimation& frame, QWidget* parent = nullptr);
  ~TqxLottieFrameWidget() override;

  int CurrentFrame() const { return FFrame; }

protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

private:
  void Restart();
  TEditorLottieAnimation& FEditor;
  QTimer FTimer;
  int FFrame = 0;
};

// The widget that shows a frame of any kind.
QWidget* CreateFrameWidget(TBaseAssetEditorFrame& frame, QWidget* parent);

}  // namespace qx
