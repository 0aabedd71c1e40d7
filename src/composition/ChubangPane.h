#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "composition/LeftOut.h"
#include "data/RecordSet.h"
#include "data/clsZELVORecordSet.h"
#include "screen/Fields.h"
#include "screen/Grid.h"
#include "screen/TextField.h"
#include "screen/Window.h"
#include "session/Session.h"

namespace zelvo::composition {

/// What the tabs of the library don't share: the names of their fields, and their words.
struct ChubangPaneNames {
    const char *txtName, *cmdName, *txtMemo, *cmdMemo, *tdbList, *tdbDetail, *rtxMemo, *rtxNote, *chkMerge,
        *cmdConfirm;
    const char* memoSearch;   ///< caption of the search by memo
    const char* listCaption;  ///< of the list before a search and after one for everything
    const char* memoCaption;  ///< of the list's column with the memo
    const char* memoLabel;    ///< in the list's caption after a search by memo
    const char* memoHint;     ///< where the memo stands, while no prescription is in hand
    const char* faultCaption;
};

/// One tab of the library: a list of stored prescriptions with its two searches, the herbs of the one in
/// hand, the notes of both, and the way into the composition.
class ChubangPane {
public:
    /// Reads the prescriptions that a word finds into the list's rows: 1, or -1 on failure. May throw.
    using Find =
        std::function<std::int16_t(data::RecordSet& Rs, const std::string& word, data::SearchKind kind)>;
    ChubangPane(screen::Window& form, screen::Place place, const ChubangPaneNames& names,
                session::Session& session, Find find);

    screen::TextField txtName;
    screen::Button cmdName;
    screen::TextField txtMemo;
    screen::Button cmdMemo;
    screen::Grid tdbList, tdbDetail;
    screen::RichTextField rtxMemo, rtxNote;
    screen::CheckButton chkMerge;
    screen::Button cmdConfirm;

    static constexpr int keyColumn = 0, nameColumn = 1, dateColumn = 2, memoColumn = 3;  // of the list
    static constexpr int noteColumn = 7;                                                 // of the herbs

    /// Binds both lists, which stay empty until the user searches.
    void bind();
    /// Closes what both lists show.
    void close();
    /// Shows memo and herbs of the list's current row; without one, nothing of either.
    void showRow();
    /// Names, where the order will stand, what of the prescription in view its herbs leave out. False when
    /// that can't be read; it has been told.
    bool tellLostHerbs(LeftOut& leftOut) const;
    /// No herbs in view.
    void emptyDetail();
    /// Reads the list again as it was last searched. One that can't be read stays as it is, or is shown empty
    /// where a row has left it already.
    void readAgain(bool rowLeft);
    /// Key of the list's current row. Throws Fault when it is none.
    std::int32_t currentKey() const;

private:
    void dressFields();
    void listen();
    void searchBy(screen::TextField& field, screen::Button& button, data::SearchKind kind);
    void search(screen::TextField& field, data::SearchKind kind);
    bool read(const std::string& word, data::SearchKind kind);
    void told(const std::function<void()>& showing);
    void showHerbs();
    void sortBy(int column);
    void mergeSwitched();

    screen::Window& form_;
    const ChubangPaneNames& names_;
    session::Session& session_;
    Find find_;
    data::RecordSet rsList_, rsDetail_;
    std::string word_;
    data::SearchKind kind_ = 0;
    bool sortDescending_ = false;
};

}  // namespace zelvo::composition
