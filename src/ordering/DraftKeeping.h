#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "composition/OrderWatch.h"
#include "ordering/DraftFiles.h"
#include "ordering/KeptDraft.h"
#include "ordering/OrderDraft.h"
#include "screen/Fields.h"

namespace zelvo::ordering {

/// Keeps the order in the making on this machine as it grows, so that a program that ends in the middle of it
/// loses nothing, and offers it when the same doctor is called for the same patient again: a line with two
/// buttons. Nothing is put into the order unasked.
class DraftKeeping {
public:
    DraftKeeping(screen::Window& form, screen::Place orderTab, OrderDraft& draft,
                 composition::OrderWatch& watch);

    screen::Panel c1eDraft;
    screen::Label lblDraft;
    screen::Button cmdDraftTake, cmdDraftDrop;

    /// Clears what nobody came back to. Shows nothing.
    void Form_Load();
    /// The chart's values stand in the fields: what comes in from here on is the doctor's work and is kept.
    /// Offers what was kept for this doctor and patient. Without a doctor nothing is kept. An order that
    /// stood there already when another doctor logged in goes on as theirs.
    void begin();
    /// The order on the screen has been sent: it is kept no more, until it changes again.
    void sent();

private:
    using Texts = std::vector<std::string>;  ///< in the order of the items
    /// The composition is kept whole, the rest where it differs from what the chart gave. A note goes with
    /// what is composed, and alone makes no order.
    enum class Part { Composition, Note, Patient, Clinic };
    struct Item {
        std::string name;
        Part part;
        std::function<std::string()> read;
        std::function<void(const std::string&)> put;
    };

    void listComposition();
    void listDelivery();
    void addText(screen::TextField& field, Part part);
    void addOption(const std::string& name, const tables::XArrayDB& options,
                   void (composition::OrderOptions::*choose)(std::int32_t));

    Texts read() const;
    KeptDraft::Texts toKeep(const Texts& now) const;
    bool composes(const Texts& now) const;
    bool isOfPatient(const KeptDraft& draft) const;
    void keep();
    void keepOrDrop(const Texts& now);
    void tellUnkept();
    void offer();
    void take();
    void drop();
    void restore(const KeptDraft::Texts& texts);

    screen::Window& form_;
    OrderDraft& draft_;
    composition::OrderWatch& watch_;
    DraftFiles files_;
    std::vector<Item> items_;
    bool keeping_ = false, failed_ = false;
    KeptDraft mine_;         ///< whose drafts this session keeps; its texts are unused
    Texts given_, settled_;  ///< as the chart gave it; as it needs no keeping
    DraftFiles::Held own_;   ///< this session's draft, none before its first
    std::string shown_;      ///< name of the offered one
};

}  // namespace zelvo::ordering
