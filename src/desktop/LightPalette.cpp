#include "desktop/LightPalette.h"

#include <QApplication>
#include <QPalette>

namespace tvx::qt {
namespace {

/// What a role is on a window in front, behind another one, and where a control is disabled.
struct RoleColour {
    QPalette::ColorRole role;
    QRgb enabled;
    QRgb disabled;
};

constexpr RoleColour Colours[] = {
    {QPalette::WindowText, 0xff000000, 0xffbebebe},    {QPalette::Button, 0xffefefef, 0xffefefef},
    {QPalette::Light, 0xffffffff, 0xffffffff},         {QPalette::Midlight, 0xffcacaca, 0xffcacaca},
    {QPalette::Dark, 0xff9f9f9f, 0xffbebebe},          {QPalette::Mid, 0xffb8b8b8, 0xffb8b8b8},
    {QPalette::Text, 0xff000000, 0xffbebebe},          {QPalette::BrightText, 0xffffffff, 0xffffffff},
    {QPalette::ButtonText, 0xff000000, 0xffbebebe},    {QPalette::Base, 0xffffffff, 0xffefefef},
    {QPalette::Window, 0xffefefef, 0xffefefef},        {QPalette::Shadow, 0xff767676, 0xffb1b1b1},
    {QPalette::Highlight, 0xff308cc6, 0xff919191},     {QPalette::HighlightedText, 0xffffffff, 0xffffffff},
    {QPalette::Link, 0xff0000ff, 0xff0000ff},          {QPalette::LinkVisited, 0xffff00ff, 0xffff00ff},
    {QPalette::AlternateBase, 0xfff7f7f7, 0xfff7f7f7}, {QPalette::ToolTipBase, 0xffffffdc, 0xffffffdc},
    {QPalette::ToolTipText, 0xff000000, 0xff000000},   {QPalette::PlaceholderText, 0x80000000, 0x80000000},
};

} // namespace

void KeepLightPalette() {
    QPalette light;
    for (const auto& [role, enabled, disabled] : Colours) {
        light.setColor(QPalette::All, role, QColor::fromRgba(enabled));
        light.setColor(QPalette::Disabled, role, QColor::fromRgba(disabled));
    }
    QApplication::setPalette(light);
}

} // namespace tvx::qt
