#pragma once

#include <QImage>
#include <QPixmap>

#include "screen/CProcess.h"
#include "screen/module_export.h"
#include "screen/picture/CImgDlg.h"

/// The settings hub (基础设置): a picture whose regions open the functions of the module.
/// With the launch argument for it, opening the hub opens only the opening balances.
class CHENGHENG_MODULE_EXPORT CNbCwSettingDlg : public CImgDlg {
    Q_OBJECT

  public:
    explicit CNbCwSettingDlg(QWidget* parent = nullptr);
    ~CNbCwSettingDlg() override;

    bool OnHelpInfo() override;

  protected:
    bool OnInitDialog() override;
    void InitSettingWnd();

    void OnNxSettingDivide();
    void OnNxSettingBursar();
    void OnNxSettingExchange();
    void OnNxSettingBegleft();
    void OnNxSettingSpecies();
    void OnNxSettingMethod();
    void OnNxSettingExit();

    /// Enter and Escape leave the hub open.
    void OnOK() override;
    void OnCancel() override;

    QBrush OnCtlColor(int kind) override;
    bool OnEraseBkgnd(QPainter& painter) override;
    void OnMouseMove(QPoint point) override;
    void OnLButtonDown(QPoint point) override;
    void OnLButtonUp(QPoint point) override;
    void OnRButtonDown(QPoint point) override;

    bool PreTranslateMessage(QEvent& event) override;
    bool WindowProc(QEvent& event) override;
    bool OnCommand(int command) override;
    void PostNcDestroy() override;
    void DoDataExchange(bool isSaving) override;

    /// A picture drawn over the background instead of the bitmap, its rows from the bottom up;
    /// null: none.
    const QImage* m_pPicture = nullptr;

  private:
    QPixmap m_background;
    CProcess m_process;
};
