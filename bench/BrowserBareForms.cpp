// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BrowserBareForms.h"

#include "ui_BareMVThemeItemSubwdgt_Preview.h"
#include "ui_BareMVThemeItemWdg.h"
#include "ui_BareMVThemePreviewFrm.h"

BareMVThemePreviewFrm::BareMVThemePreviewFrm(QWidget* parent)
    : QFrame(parent)
{
    Ui::BareMVThemePreviewFrm().setupUi(this);
}

BareMVThemeItemSubwdgt_Preview::BareMVThemeItemSubwdgt_Preview(QWidget* parent)
    : QFrame(parent)
{
    Ui::BareMVThemeItemSubwdgt_Preview form;
    form.setupUi(this);
    form.btnCollect->hide();
    form.btnCollect_No->hide();
    form.btnDownload->hide();
    form.frmNetError->hide();
    form.lblCur->hide();
    form.lblImg->hide();
}

BareMVThemeItemWdg::BareMVThemeItemWdg(QWidget* parent)
    : QFrame(parent)
{
    Ui::BareMVThemeItemWdg().setupUi(this);
}
