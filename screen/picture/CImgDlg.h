#pragma once

#include <string>
#include <vector>

#include "screen/dialog_frame.h"

namespace chengheng {
class HotRegion;
}

/// A hot region of a picture window, in client pixels.
struct _RCII {
    int lCommand = 0;
    int lLeft = 0;
    int lTop = 0;
    int lWidth = 0;
    int lHeight = 0;
    int lImage = 0;  ///< picture of the host; its caption serves when sCaption is empty
    std::string sCaption;
    int bHighlight = 1;  ///< non-zero: lights up under the pointer
    int bTabStop = 1;    ///< non-zero: can be reached by the keyboard
    int lCorner = 0;     ///< radius of the corners of what lights up
};

/// A dialog that is one picture with hot regions, each of which runs a command. A region is a
/// button: pointer, Tab and arrows, Enter, Space and a digit (the n-th region has the digit n)
/// press it, and a screen reader finds it under its caption.
class CImgDlg : public chengheng::DialogFrame {
    Q_OBJECT

  public:
    CImgDlg(int templateNumber, QWidget* parent);
    ~CImgDlg() override;

    /// The record is copied. One whose picture does not exist is not inserted.
    void InsertCmdImage(const _RCII& record);

  protected:
    bool OnInitDialog() override;
    /// Lights up the region under the point.
    void OnMouseMove(QPoint point) override;
    /// The same for a pointer that comes down without having moved. Released over the region
    /// where it came down, it runs the region's command.
    void OnLButtonDown(QPoint point) override;

    void leaveEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void connectRegion(chengheng::HotRegion& region);
    void light(const chengheng::HotRegion* lit);
    chengheng::HotRegion* regionAt(QPoint point) const;

    struct InsertedRegion {
        _RCII record;
        chengheng::HotRegion& region;
    };
    std::vector<InsertedRegion> m_regions;
};
