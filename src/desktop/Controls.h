// Every control that screens are made of.
#pragma once

#include "desktop/Caption.h"
#include "desktop/ControlArray.h"
#include "desktop/FloodPanel.h"
#include "desktop/Frame.h"
#include "desktop/Label.h"
#include "desktop/LabelButton.h"
#include "desktop/ListBox.h"
#include "desktop/PictureBox.h"
#include "desktop/TextBox.h"
