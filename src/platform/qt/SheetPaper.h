#pragma once

#include <QtCore/QString>
#include <memory>

#include "screen/RichText.h"

class QPrinter;
class QTextDocument;
class QWidget;

namespace zelvo::qt {

/// A dosage sheet as a patient is handed it: the clinic's name and telephone over the text, on A4.
class SheetPaper {
public:
    SheetPaper(const screen::RichText& sheet, const QString& hospitalName, const QString& phoneNo);
    ~SheetPaper();
    SheetPaper(const SheetPaper&) = delete;
    SheetPaper& operator=(const SheetPaper&) = delete;

    void print(QPrinter& printer) const;
    /// Writes it as a PDF file, whole or not at all. False when it can't be written.
    bool writePdf(const QString& path) const;
    const QTextDocument& page() const { return *page_; }

private:
    std::unique_ptr<QTextDocument> page_;
};

/// Shows the sheet as it comes out of the printer.
void previewSheet(QWidget& over, const SheetPaper& paper);
/// Prints it after the system's question for a printer.
void printSheet(QWidget& over, const SheetPaper& paper);
/// Writes it into a PDF file that the user names; says so in a box when it can't.
void saveSheet(QWidget& over, const SheetPaper& paper);

}  // namespace zelvo::qt
