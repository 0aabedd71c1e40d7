// The window on the glass: from the chart's call to its first paint, a long list, and a key until it is
// drawn. The drafts of orders are kept as at the desk.
#include <QtCore/QElapsedTimer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTableView>
#include <algorithm>
#include <stdexcept>
#include <vector>

#include "BareDesktop.h"
#include "DemoSession.h"
#include "Measure.h"
#include "host/clsZELVOInterface.h"
#include "platform/files/FileSystemObject.h"
#include "platform/qt/Forms.h"
#include "platform/qt/Shell.h"
#include "platform/sqlite/SqliteConnection.h"
#include "screen/Fields.h"
#include "screen/TextField.h"

namespace {

using namespace zelvo;
using bench::Comparison;

constexpr int startRuns = 15, paintRuns = 15, keyRuns = 300, herbs = 60, rowRuns = 60, drafts = 40;
constexpr double frame = 16, draftTime = 2;

enum class Drafts { Kept, None };

/// Told when the widget has been painted for the first time.
class Painted : public QObject {
public:
    explicit Painted(QWidget& widget) { widget.installEventFilter(this); }
    void wait() const {
        while (!painted_) QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }
    bool eventFilter(QObject*, QEvent* event) override {
        painted_ = painted_ || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool painted_ = false;
};

/// Puts windows on the glass, does what is to be done there, and closes them.
class GlassDesktop : public bench::BareDesktop {
public:
    explicit GlassDesktop(Drafts drafts) {
        if (drafts == Drafts::None) return;
        components().add("Scripting.FileSystemObject",
                         [] { return std::make_unique<files::FileSystemObject>(); });
    }
    std::function<void(qt::Shell&)> onGlass = [](qt::Shell&) {};
    double screenWidth() const override { return 19200; }
    void runModal(screen::Window& window) override {
        qt::Shell shell(window, nullptr);
        const Painted painted(shell);
        shell.open();
        window.appear();
        painted.wait();
        onGlass(shell);
        window.userClose();
    }
};

using Work = std::function<void(qt::Shell&, session::Session&)>;

void runSession(host::HostArguments call, const Work& work, Drafts drafts = Drafts::Kept) {
    GlassDesktop desktop(drafts);
    session::Session session;
    desktop.onGlass = [&](qt::Shell& shell) { work(shell, session); };
    host::clsZELVOInterface(desktop, session, sqlite::openFile).ZELVOInterface(std::move(call));
    if (desktop.boxes > 0) throw std::runtime_error("a box stood in the way");
}
void runSession(const std::string& path, const Work& work) {
    runSession(bench::chartCall(path), work);
}

void showBareForm() {
    const auto form = qt::makeForm("frmDoctorOCSmain");
    form->findChild<QTabWidget*>(QStringLiteral("c1tMain"))->setCurrentIndex(1);
    form->resize(1280, 800);
    const Painted painted(*form);
    form->show();
    painted.wait();
}

/// From the chart's call to the window's first paint, on the form shown by a bare program.
bool compareStarts(const std::string& path) {
    Comparison start("first_paint", 2);
    for (int run = 0; run < startRuns; ++run) {
        start.floor(showBareForm);
        start.measured([&] { runSession(path, [](qt::Shell&, session::Session&) {}); });
    }
    return start.report();
}

screen::Grid& herbGrid(qt::Shell& shell) {
    return dynamic_cast<screen::Grid&>(*shell.window().field("tdbDGL"));
}

void fill(tables::XArrayDB& rows, int count) {
    rows.reDim(-1, rows.upperColumn());
    rows.insertRows(0, count);
    for (int row = 0; row < count; ++row) {
        for (int column = 1; column <= 6; ++column) rows.set(row, column, "12");
        rows.set(row, 8, "0");
    }
}

void paintNow(QWidget& widget) {
    widget.repaint();
    QCoreApplication::processEvents();
}

/// A list of 100,000 rows against one of 100: bound, drawn, scrolled to its end.
bool compareLists(const std::string& path) {
    Comparison first("list_first_paint", 1.2), end("list_end_paint", 1.2);
    runSession(path, [&](qt::Shell& shell, session::Session& session) {
        screen::Grid& grid = herbGrid(shell);
        auto& view = dynamic_cast<QTableView&>(*shell.binder().widgetOf(grid));
        tables::XArrayDB small, large;
        small.reDim(-1, session.g_xaDrug.upperColumn());
        large.reDim(-1, session.g_xaDrug.upperColumn());
        fill(small, 100);
        fill(large, 100000);
        const auto show = [&](tables::XArrayDB& rows) {
            grid.bind(&rows);
            shell.binder().flush();
            paintNow(*view.viewport());
        };
        const auto empty = [&] {
            grid.bind(nullptr);
            shell.binder().flush();
            QCoreApplication::processEvents();
        };
        for (int run = 0; run < paintRuns; ++run) {
            empty();
            first.floor([&] { show(small); });
            empty();
            first.measured([&] { show(large); });
            view.scrollToTop();
            end.floor([&] { paintNow(*view.viewport()); });
            view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum());
            end.measured([&] { paintNow(*view.viewport()); });
        }
        grid.bind(&session.g_xaDrug);
    });
    const bool within = first.report();
    return end.report() && within;
}

/// A folder of kept drafts, one of them the patient's: what it adds on the way to the first paint.
bool measureDraftStore(const std::string& path) {
    host::HostArguments call = bench::chartCall(path);
    const auto compose = [](qt::Shell& shell, session::Session& session) {
        fill(session.g_xaDrug, herbs);
        shell.window().userFocus(*shell.window().field("txtChubsu"));
        shell.window().userKey(screen::Key::typed(U'2'));
    };
    for (int i = 0; i < drafts; ++i, ++call.PatientPK) runSession(call, compose);
    const auto offered = [](qt::Shell& shell, session::Session&) {
        if (!shell.window().field("c1eDraft")->visible()) throw std::runtime_error("no draft is offered");
    };
    Comparison start("first_paint_with_drafts", 2);
    for (int run = 0; run < startRuns; ++run) {
        start.floor([&] {
            runSession(
                bench::chartCall(path), [](qt::Shell&, session::Session&) {}, Drafts::None);
        });
        start.measured([&] { runSession(path, offered); });
    }
    return start.reportAdded(draftTime);
}

/// Milliseconds from a key to the paint of the widget that shows what it comes to.
double keyTime(QWidget& shows, int code, const QString& text) {
    return bench::milliseconds([&] {
        const Painted painted(shows);
        QKeyEvent key(QEvent::KeyPress, code, Qt::NoModifier, text);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &key);
        painted.wait();
    });
}

bool reportKeys(const char* name, std::vector<double> times) {
    std::sort(times.begin(), times.end());
    const auto at = [&](double share) { return times[static_cast<std::size_t>(share * (keyRuns - 1))]; };
    std::printf("%-28s p50 %.2f p95 %.2f p99 %.2f max %.2f ms   (at most %.0f at p95)\n", name, at(0.5),
                at(0.95), at(0.99), times.back(), frame);
    return at(0.95) <= frame;
}

/// A key in the packets until the glass shows what it comes to.
bool measureKeys(const std::string& path) {
    std::vector<double> times;
    runSession(path, [&](qt::Shell& shell, session::Session& session) {
        fill(session.g_xaDrug, herbs);
        herbGrid(shell).refresh();
        auto& packets = dynamic_cast<screen::EditField&>(*shell.window().field("txtChubsu"));
        shell.window().userFocus(packets);
        shell.binder().flush();
        for (int run = 0; run < keyRuns; ++run) {
            packets.select(0, 3);
            const QString typed = QString::number(run % 9 + 1);
            times.push_back(keyTime(*QApplication::focusWidget(), Qt::Key_0 + run % 9 + 1, typed));
            if (packets.text() != typed.toStdString()) throw std::runtime_error("the keys went astray");
        }
    });
    return reportKeys("key_to_paint_60_herbs", std::move(times));
}

/// A key in a herb's name until the herbs that it may mean stand beneath it: many of 500.
bool measureFinder(const std::string& path) {
    std::vector<double> times;
    runSession(path, [&](qt::Shell& shell, session::Session& session) {
        const std::string numbers =
            "WITH RECURSIVE n(i) AS (SELECT 1000 UNION ALL SELECT i + 1 FROM n WHERE i < 1499) ";
        session.g_conYakGuk->execute(numbers +
                                     "INSERT INTO t_DrugList (DGL_PK, DGL_CallSign, DGL_Internal, "
                                     "DGL_Default, DGL_IsValid) SELECT i, '약재' || i, '약재', 0, 1 FROM n");
        session.g_conYakGuk->execute(numbers +
                                     "INSERT INTO t_DrugDanga (DGL_PK, DGD_Danga, DGD_StartDate, "
                                     "DGD_EndDate) SELECT i, 20, '2000-01-01', '2099-12-31' FROM n");
        fill(session.g_xaDrug, herbs);
        screen::Grid& grid = herbGrid(shell);
        grid.refresh();
        shell.window().userFocus(grid);
        grid.setCurrentColumn(0);
        shell.binder().flush();
        keyTime(*QApplication::focusWidget(), Qt::Key_D, "d");
        auto* list = shell.findChild<QListWidget*>("suggestions_tdbDGL");
        for (int run = 0; run < keyRuns; ++run) {
            const bool types = run % 2 == 0;
            times.push_back(
                keyTime(*list->viewport(), types ? Qt::Key_W : Qt::Key_Backspace, types ? "w" : "\b"));
            if (grid.editText() != (types ? "dw" : "d") || grid.suggestions().size() < 40)
                throw std::runtime_error("the keys went astray");
        }
    });
    return reportKeys("key_to_paint_500_found", std::move(times));
}

/// Another row of the sent orders until the whole order stands on the glass.
bool measureRowChanges(const std::string& path) {
    std::vector<double> times;
    runSession(path, [&](qt::Shell& shell, session::Session& session) {
        screen::Window& window = shell.window();
        session.g_conYakGuk->execute("UPDATE t_ChubangJun SET DTR_PK = 1, CBJ_IsCanceled = 0");
        dynamic_cast<screen::TabControl&>(*window.field("c1tMain")).select(2);
        dynamic_cast<screen::DateField&>(*window.field("dtpCBJsearch(0)")).setValue({2000, 1, 1});
        dynamic_cast<screen::Button&>(*window.field("sscCBJsearchDate")).onPress();
        auto& list = dynamic_cast<screen::Grid&>(*window.field("tdbCBJ"));
        const auto& patient = dynamic_cast<const screen::EditField&>(*window.field("txtCBJmPatientName"));
        if (list.rowCount() < 2) throw std::runtime_error("the orders are missing");
        shell.binder().flush();
        paintNow(shell);
        for (int run = 0; run < rowRuns; ++run) {
            const int row = (list.currentRow() + 1) % list.rowCount();
            times.push_back(bench::milliseconds([&] {
                list.userRow(row);
                shell.binder().flush();
                paintNow(shell);
            }));
            if (patient.text() != list.value("환자명")) throw std::runtime_error("the order did not come");
        }
    });
    std::sort(times.begin(), times.end());
    const double median = times[times.size() / 2];
    std::printf("%-28s p50 %.2f max %.2f ms   (at most %.0f at p50)\n", "row_to_paint", median, times.back(),
                2 * frame + 1);
    return median <= 2 * frame + 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setQuitOnLastWindowClosed(false);
    bool within = false;
    try {
        const bench::DemoPharmacy pharmacy;
        qputenv("XDG_DATA_HOME", (pharmacy.path() + ".data").c_str());
        within = compareStarts(pharmacy.path());
        within = compareLists(pharmacy.path()) && within;
        within = measureKeys(pharmacy.path()) && within;
        within = measureDraftStore(pharmacy.path()) && within;
        within = measureFinder(pharmacy.path()) && within;
        within = measureRowChanges(pharmacy.path()) && within;
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "%s\n", fault.what());
        return 1;
    }
    return within ? 0 : 1;
}
