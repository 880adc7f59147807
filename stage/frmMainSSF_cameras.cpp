// SPDX-License-Identifier: GPL-3.0-or-later
// The camera page: each camera with its name, position and orientation, on the page
// mechanism of frmMainSSF_pages.cpp. Which camera is the main one is chosen in the general
// information above the pages, never here.

#include "foundation/controls/TextBox.h"
#include "stage/frmMainSSF.h"

frmMainSSF::Page<clsCamera> frmMainSSF::CameraPage()
{
    return {
        lstCameras,       cameraDetail,        &clsSSF::AddCamera,         &clsSSF::DeleteCamera,
        &clsSSF::Cameras, &clsSSF::NumCameras, &frmMainSSF::CameraRowText, &frmMainSSF::ShowCamera};
}

void frmMainSSF::connectCameraPage()
{
    connectPage(CameraPage(), addCameraButton, menDeleteCamera,
                {{txtCamera, &clsCamera::Name},
                 {txtPosXCam, &clsCamera::PositionX},
                 {txtPosYCam, &clsCamera::PositionY},
                 {txtPosZCam, &clsCamera::PositionZ},
                 {txtOriXCam, &clsCamera::OrientationX},
                 {txtOriYCam, &clsCamera::OrientationY},
                 {txtOriZCam, &clsCamera::OrientationZ}});
}

void frmMainSSF::ShowCamera(qint16 index)
{
    const std::shared_ptr<clsCamera> camera = objSSF ? objSSF->Cameras(index) : nullptr;
    if (!camera)
        return;
    txtCamera->setText(camera->Name);
    txtPosXCam->setText(camera->PositionX);
    txtPosYCam->setText(camera->PositionY);
    txtPosZCam->setText(camera->PositionZ);
    txtOriXCam->setText(camera->OrientationX);
    txtOriYCam->setText(camera->OrientationY);
    txtOriZCam->setText(camera->OrientationZ);
}
