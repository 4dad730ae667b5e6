// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/labels.h"
#include "ui/controls/popover_row.h"
#include "ui/panel/panel_content.h"

#include <QWidget>

namespace tarnwick {

/// A device of the list: online dot, name, address and operating system. Display only.
class DeviceRow : public QWidget {
    Q_OBJECT

public:
    static constexpr int dotSize = 8;

    explicit DeviceRow(PanelContent::Device device, QWidget* parent = nullptr);

    void setDevice(const PanelContent::Device& device);

    QSize sizeHint() const override;

    QRect dotRect() const;
    QColor dotColor() const;

    const ElidedLabel& name() const { return *name_; }

    const ElidedLabel& address() const { return *address_; }

    const ElidedLabel& os() const { return *os_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void showDevice();
    void placeTexts();

    PanelContent::Device device_;
    ElidedLabel* name_;
    ElidedLabel* address_;
    ElidedLabel* os_;
};

/// The panel's "Devices" row, which lists the network's other devices in a popover.
class DevicesSubmenu : public PopoverRow {
    Q_OBJECT

public:
    static constexpr int maximumListHeight = 300;

    explicit DevicesSubmenu(QWidget* parent);

    void setContent(const PanelContent::Devices& content);

    QSize sizeHint() const override;

    const ElidedLabel& count() const { return *count_; }

protected:
    void paintRow(QPainter& painter) override;
    void resizeEvent(QResizeEvent* event) override;
    PopoverList* makeList() override;
    void updateList(PopoverList& list) override;

private:
    void placeCount();
    QWidget* provideRow(QWidget* row, qsizetype index) const;

    PanelContent::Devices content_;
    ElidedLabel* count_;
};

} // namespace tarnwick
