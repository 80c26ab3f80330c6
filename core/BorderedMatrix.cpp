#include "core/BorderedMatrix.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace morvane {
namespace {

// Inverts the square matrix in place by Gauss-Jordan elimination with partial
// pivoting; false when it is singular. A matrix of size 0 is its own inverse.
bool Invert(std::vector<double>& m, int size) {
    if (size == 0)
        return true;
    std::vector<double> inv(static_cast<std::size_t>(size * size), 0.0);
    for (int i = 0; i < size; ++i)
        inv[i * size + i] = 1;
    double scale = 0;
    for (int i = 0; i < size; ++i)
        scale = std::max(scale, std::fabs(m[i * size + i]));
    if (!(scale > 0))
        return false;
    for (int col = 0; col < size; ++col) {
        int pivot = col;
        for (int row = col + 1; row < size; ++row) {
            if (std::fabs(m[row * size + col]) > std::fabs(m[pivot * size + col]))
                pivot = row;
        }
        if (!(std::fabs(m[pivot * size + col]) > 1e-13 * scale))
            return false;
        if (pivot != col) {
            for (int k = 0; k < size; ++k) {
                std::swap(m[pivot * size + k], m[col * size + k]);
                std::swap(inv[pivot * size + k], inv[col * size + k]);
            }
        }
        const double d = m[col * size + col];
        for (int k = 0; k < size; ++k) {
            m[col * size + k] /= d;
            inv[col * size + k] /= d;
        }
        for (int row = 0; row < size; ++row) {
            if (row == col)
                continue;
            const double f = m[row * size + col];
            if (f == 0)
                continue;
            for (int k = 0; k < size; ++k) {
                m[row * size + k] -= f * m[col * size + k];
                inv[row * size + k] -= f * inv[col * size + k];
            }
        }
    }
    m = std::move(inv);
    return true;
}

// The product of an r x n and an n x c matrix, both row by row.
std::vector<double> Product(const std::vector<double>& x, const std::vector<double>& y, int r,
                            int n, int c) {
    std::vector<double> out(static_cast<std::size_t>(r * c), 0.0);
    for (int i = 0; i < r; ++i) {
        for (int j = 0; j < c; ++j) {
            for (int k = 0; k < n; ++k)
                out[i * c + j] += x[i * n + k] * y[k * c + j];
        }
    }
    return out;
}

bool AllFinite(const std::vector<double>& values) {
    return std::all_of(values.begin(), values.end(), [](double v) { return std::isfinite(v); });
}

}  // namespace

BorderedPlaces BorderedPlaces::Of(const std::vector<int>& owner, int blockCount) {
    BorderedPlaces places;
    places.owner = owner;
    places.blocks.resize(blockCount);
    for (int i = 0; i < static_cast<int>(owner.size()); ++i) {
        std::vector<int>& list = owner[i] >= 0 ? places.blocks[owner[i]] : places.shared;
        places.slot.push_back(static_cast<int>(list.size()));
        list.push_back(i);
    }
    return places;
}

BorderedMatrix::BorderedMatrix(BorderedPlaces places) : places_(std::move(places)) {
    const std::size_t s = places_.shared.size();
    for (const std::vector<int>& block : places_.blocks) {
        const std::size_t n = block.size();
        a_.emplace_back(n * n, 0.0);
        b_.emplace_back(n * s, 0.0);
        c_.emplace_back(s * n, 0.0);
    }
    d_.assign(s * s, 0.0);
}

void BorderedMatrix::add(int i, int j, double value) {
    const int p = places_.owner[i], q = places_.owner[j];
    const int a = places_.slot[i], b = places_.slot[j];
    const int s = static_cast<int>(places_.shared.size());
    if (p >= 0 && q >= 0) {
        if (p != q)
            throw std::logic_error("BorderedMatrix: two blocks do not meet");
        a_[p][a * places_.blocks[p].size() + b] += value;
    } else if (p >= 0) {
        b_[p][a * s + b] += value;
    } else if (q >= 0) {
        c_[q][a * places_.blocks[q].size() + b] += value;
    } else {
        d_[a * s + b] += value;
    }
}

double BorderedMatrix::at(int i, int j) const {
    const int p = places_.owner[i], q = places_.owner[j];
    const int a = places_.slot[i], b = places_.slot[j];
    const int s = static_cast<int>(places_.shared.size());
    if (p >= 0 && q >= 0)
        return p == q ? a_[p][a * places_.blocks[p].size() + b] : 0.0;
    if (p >= 0)
        return b_[p][a * s + b];
    if (q >= 0)
        return c_[q][a * places_.blocks[q].size() + b];
    return d_[a * s + b];
}

bool BorderedMatrix::invert(BorderedInverse& inverse) const {
    const int s = static_cast<int>(places_.shared.size());
    inverse = BorderedInverse();
    inverse.places_ = places_;
    std::vector<double> schur = d_;
    for (std::size_t p = 0; p < places_.blocks.size(); ++p) {
        const int n = static_cast<int>(places_.blocks[p].size());
        std::vector<double> inverseA = a_[p];
        if (!Invert(inverseA, n))
            return false;
        inverse.u_.push_back(Product(inverseA, b_[p], n, n, s));
        inverse.v_.push_back(Product(c_[p], inverseA, s, n, n));
        const std::vector<double> cu = Product(c_[p], inverse.u_.back(), s, n, s);
        for (int k = 0; k < s * s; ++k)
            schur[k] -= cu[k];
        inverse.inverseA_.push_back(std::move(inverseA));
    }
    if (!Invert(schur, s))
        return false;
    inverse.inverseS_ = std::move(schur);
    return true;
}

double BorderedInverse::sharedTimesV(int k, int block, int j) const {
    const int s = static_cast<int>(places_.shared.size());
    const int n = static_cast<int>(places_.blocks[block].size());
    double sum = 0;
    for (int l = 0; l < s; ++l)
        sum += inverseS_[k * s + l] * v_[block][l * n + j];
    return sum;
}

double BorderedInverse::uTimesShared(int block, int i, int k) const {
    const int s = static_cast<int>(places_.shared.size());
    double sum = 0;
    for (int l = 0; l < s; ++l)
        sum += u_[block][i * s + l] * inverseS_[l * s + k];
    return sum;
}

double BorderedInverse::at(int i, int j) const {
    const int p = places_.owner[i], q = places_.owner[j];
    const int a = places_.slot[i], b = places_.slot[j];
    const int s = static_cast<int>(places_.shared.size());
    if (p < 0 && q < 0)
        return inverseS_[a * s + b];
    if (q < 0)
        return -uTimesShared(p, a, b);
    if (p < 0)
        return -sharedTimesV(a, q, b);
    const int n = static_cast<int>(places_.blocks[p].size());
    double value = p == q ? inverseA_[p][a * n + b] : 0.0;
    if (s > 0) {
        for (int k = 0; k < s; ++k)
            value += u_[p][a * s + k] * sharedTimesV(k, q, b);
    }
    return value;
}

std::vector<double> BorderedInverse::times(const std::vector<double>& v) const {
    const int s = static_cast<int>(places_.shared.size());
    std::vector<double> out(v.size(), 0.0);
    // g - sum of V_p f_p, then y = S^-1 of it.
    std::vector<double> rest(s);
    for (int k = 0; k < s; ++k)
        rest[k] = v[places_.shared[k]];
    for (std::size_t p = 0; p < places_.blocks.size(); ++p) {
        const std::vector<int>& block = places_.blocks[p];
        const int n = static_cast<int>(block.size());
        for (int k = 0; k < s; ++k) {
            for (int j = 0; j < n; ++j)
                rest[k] -= v_[p][k * n + j] * v[block[j]];
        }
    }
    std::vector<double> y(s, 0.0);
    for (int k = 0; k < s; ++k) {
        for (int l = 0; l < s; ++l)
            y[k] += inverseS_[k * s + l] * rest[l];
        out[places_.shared[k]] = y[k];
    }
    // x_p = A_p^-1 f_p - U_p y.
    for (std::size_t p = 0; p < places_.blocks.size(); ++p) {
        const std::vector<int>& block = places_.blocks[p];
        const int n = static_cast<int>(block.size());
        for (int i = 0; i < n; ++i) {
            double x = 0;
            for (int j = 0; j < n; ++j)
                x += inverseA_[p][i * n + j] * v[block[j]];
            for (int k = 0; k < s; ++k)
                x -= u_[p][i * s + k] * y[k];
            out[block[i]] = x;
        }
    }
    return out;
}

bool BorderedInverse::finite() const {
    for (std::size_t p = 0; p < inverseA_.size(); ++p) {
        if (!AllFinite(inverseA_[p]) || !AllFinite(u_[p]) || !AllFinite(v_[p]))
            return false;
    }
    return AllFinite(inverseS_);
}

}  // namespace morvane
