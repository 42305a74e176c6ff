#pragma once

#include <QProxyStyle>

namespace desktop {

/// Qt's Fusion style, with editors that can only be read told apart from those that can be typed into, light
/// borders of frames, outlines that can be seen on a dark ground, expand arrows that can be seen on a
/// selected line, and room around the texts of buttons and headers.
class KorvoStyle : public QProxyStyle {
 public:
  KorvoStyle() : QProxyStyle("Fusion") {}

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override;
};

}  // namespace desktop
