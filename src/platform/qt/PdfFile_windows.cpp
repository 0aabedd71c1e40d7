#include "platform/qt/PdfFile.h"

#include <windows.h>

#include <commdlg.h>

#include <QtCore/QDir>
#include <QtWidgets/QWidget>
#include <string>

namespace zelvo::qt {

// The toolkit's own question is the same one, and writes the places that were looked at into the registry.
QString askForPdfFile(QWidget& over, const QString& title, const QString& proposed) {
    constexpr std::size_t longestPath = 32768;
    std::wstring path = proposed.toStdWString();
    path.resize(longestPath);
    const std::wstring head = title.toStdWString();
    OPENFILENAMEW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = reinterpret_cast<HWND>(over.window()->winId());
    question.lpstrFilter = L"PDF (*.pdf)\0*.pdf\0";
    question.lpstrFile = path.data();
    question.nMaxFile = static_cast<DWORD>(path.size());
    question.lpstrTitle = head.c_str();
    question.lpstrDefExt = L"pdf";
    // What is named is a patient's: it is nothing for the list of what was opened last.
    question.Flags = OFN_EXPLORER | OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY |
                     OFN_NOCHANGEDIR | OFN_DONTADDTORECENT;
    return ::GetSaveFileNameW(&question) ? QDir::fromNativeSeparators(QString::fromWCharArray(path.data()))
                                         : QString();
}

}  // namespace zelvo::qt
