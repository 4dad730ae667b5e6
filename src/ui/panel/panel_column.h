// SPDX-License-Identifier: MIT
#pragma once

#include "ui/panel/panel_content.h"

#include <QVBoxLayout>
#include <QWidget>

#include <array>

namespace tarnwick {

/// The sections of the panel, one below the other, with dividers between them.
class PanelColumn : public QWidget {
    Q_OBJECT

public:
    PanelColumn(PerformCommand perform, QWidget* parent);

    /// Sections live on from one content to the next; one that is left out goes.
    void setContent(const PanelContent& content);

    /// Height that the contents take at that width.
    int contentHeight(int width) const;

private:
    template <typename View, typename Content>
    void showView(QWidget*& view, const Content& content);
    void showSection(const PanelContent::Section& section);
    void addDivider(qsizetype number);
    void removeUnused(const PanelContent& content);

    static constexpr std::size_t sectionKinds = std::variant_size_v<PanelContent::Section>;

    PerformCommand perform_;
    QVBoxLayout* column_;
    std::array<QWidget*, sectionKinds> views_{}; // by the section's kind
    QList<QWidget*> dividers_;
};

} // namespace tarnwick
