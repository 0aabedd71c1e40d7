#pragma once

#include <QtCore/QString>
#include <QtGui/QImage>
#include <memory>
#include <vector>

#include "screen/RichText.h"

class QPrinter;
class QTextDocument;
class QWidget;

namespace zelvo::qt {

/// What stands over a dosage sheet: whose it is and when it was handed out. What is empty is left out.
struct SheetHead {
    QString clinic, phone, patient, date;
};

/// A dosage sheet as a patient is handed it, on A4: the head over the text, and a patient's name and a number
/// on each of several pages. The letters that it has most of stand in a size that can be read at arm's
/// length, all others in their proportion to them.
class SheetPaper {
public:
    SheetPaper(const screen::RichText& sheet, const SheetHead& head);
    ~SheetPaper();
    SheetPaper(const SheetPaper&) = delete;
    SheetPaper& operator=(const SheetPaper&) = delete;

    void print(QPrinter& printer) const;
    /// Writes it as a PDF file, whole or not at all. False when it can't be written.
    bool writePdf(const QString& path) const;
    /// The pages as they come out of the printer, in so many dots to the inch.
    std::vector<QImage> pictures(int dots) const;
    const QTextDocument& page() const { return *page_; }
    /// What the sizes of the sheet are multiplied by on the paper.
    double enlargement() const { return enlargement_; }

private:
    class Pages;

    QString footName_;
    double enlargement_;
    int dateLine_ = 0;  ///< the block of patient and date
    std::unique_ptr<QTextDocument> page_;
};

/// Shows the sheet as it comes out of the printer.
void previewSheet(QWidget& over, const SheetPaper& paper);
/// Prints it after the system's question for a printer.
void printSheet(QWidget& over, const SheetPaper& paper);
/// Writes it into a PDF file that the user names; says so in a box when it can't.
void saveSheet(QWidget& over, const SheetPaper& paper);

}  // namespace zelvo::qt
