// `troupe`: creates the application and shows the start-up window. Until the rig binding
// manager exists (Part 1.4 makes frmMainRBT the start-up window), that is frmMainTSL.

#include "foundation/controls/QtDialogService.h"
#include "show/frmMainTSL.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Troupe"));

    QtDialogService dialogs;
    frmMainTSL window(dialogs);
    window.show();
    return QApplication::exec();
}
