#pragma once
// A square matrix whose parameters fall into blocks that meet only through a few
// shared ones: block diagonal with a border,
//     | A  B |      A = diag(A1 .. Ak), each Ai the parameters of block i,
//     | C  D |      B, C the couplings with the shared parameters, D theirs.
// The information matrix of lines fitted together is of this kind: each line's own
// intercept, slope and natural response touch only its own groups and the common
// slope (or common line). Kept by blocks and inverted by the Schur complement
//     S = D - C A^-1 B,
// storage and time grow with the number of blocks, where a dense matrix of the same
// parameters would grow with its square.
//
// A block is inverted by Gauss-Jordan elimination with partial pivoting; a matrix of
// one block and no shared parameter gives exactly the numbers of that elimination on
// the whole matrix.

#include <vector>

namespace morvane {

// Where each parameter stands: in which block (or shared) and at what place there.
struct BorderedPlaces {
    std::vector<int> owner;  // per parameter: its block, or -1 when shared
    std::vector<int> slot;   // per parameter: its place within its block or the shared
    std::vector<std::vector<int>> blocks;  // per block: its parameters, in order
    std::vector<int> shared;               // the shared parameters, in order

    // owner[i] is the block of parameter i (0 .. blockCount - 1) or -1 for shared.
    static BorderedPlaces Of(const std::vector<int>& owner, int blockCount);
    int size() const { return static_cast<int>(owner.size()); }
};

class BorderedInverse;

class BorderedMatrix {
  public:
    BorderedMatrix() = default;
    explicit BorderedMatrix(BorderedPlaces places);

    // Adds the value at (i, j). Two parameters of different blocks never meet: a
    // value between them is a fault of the caller and throws std::logic_error.
    void add(int i, int j, double value);
    double at(int i, int j) const;
    const BorderedPlaces& places() const { return places_; }

    // The inverse, or false when the matrix is singular (a pivot below 1e-13 of the
    // largest diagonal entry of its block or of the Schur complement).
    bool invert(BorderedInverse& inverse) const;

  private:
    friend class BorderedInverse;
    BorderedPlaces places_;
    std::vector<std::vector<double>> a_;  // per block: n x n, row by row
    std::vector<std::vector<double>> b_;  // per block: n x s
    std::vector<std::vector<double>> c_;  // per block: s x n
    std::vector<double> d_;               // s x s
};

// The inverse of a bordered matrix, kept by its parts: per block Ai^-1, Ui = Ai^-1 Bi
// and Vi = Ci Ai^-1, and S^-1. An entry costs at most the square of the shared count.
class BorderedInverse {
  public:
    // The entry (i, j) of the inverse.
    double at(int i, int j) const;
    // The inverse times the vector.
    std::vector<double> times(const std::vector<double>& v) const;
    // Every stored part is a finite number.
    bool finite() const;
    int size() const { return places_.size(); }

  private:
    friend class BorderedMatrix;
    double sharedTimesV(int k, int block, int j) const;  // (S^-1 V_block)(k, j)
    double uTimesShared(int block, int i, int k) const;  // (U_block S^-1)(i, k)
    BorderedPlaces places_;
    std::vector<std::vector<double>> inverseA_, u_, v_;
    std::vector<double> inverseS_;
};

}  // namespace morvane
