#include <QtCore/QtPlugin>

// The toolkit is linked in, with its part for this kind of display.
Q_IMPORT_PLUGIN(QWindowsIntegrationPlugin)
