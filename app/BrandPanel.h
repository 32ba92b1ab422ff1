#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class BrandPanel;
}

/// The program's picture, title and version, and the marks below them.
class BrandPanel : public QWidget {
    Q_OBJECT

public:
    explicit BrandPanel(QWidget *parent = nullptr);
    ~BrandPanel() override;

    /// The maker's mark is always seen, of the resellers' only that of the one named.
    void showReseller(const QString &name);

private:
    std::unique_ptr<Ui::BrandPanel> ui_;
};
