#pragma once
#include <QLayout>
#include <memory>
#include <vector>

namespace melvane {

/// Lays its panels out in rows from the left, in as many rows as the width asks for, of about the same width.
/// The panels of a row share its height, and those that expand share what is left of its width.
class FlowLayout : public QLayout {
 public:
    explicit FlowLayout(int spacing);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override;
    int count() const override { return static_cast<int>(items_.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    /// The smallest width that needs no more than `rows` rows, at least 1.
    int widthForRows(std::size_t rows) const;
    QSize sizeHint() const override { return minimumSize(); }
    QSize minimumSize() const override;
    void setGeometry(const QRect& area) override;

 private:
    struct Row {
        std::size_t first = 0, count = 0;
        int width = 0, height = 0;
    };
    std::vector<Row> filledRows(int width) const;
    std::vector<Row> rowsFor(int width) const;
    bool grows(std::size_t at) const;
    void place(const Row& row, QRect area) const;

    std::vector<std::unique_ptr<QLayoutItem>> items_;
};

}  // namespace melvane
