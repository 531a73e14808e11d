// SPDX-License-Identifier: MPL-2.0

#include "documents/package/Deflate.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <limits>

#include "documents/package/DocumentError.h"

namespace huebrush::documents {

namespace {

/// Without the header and the sum of a zlib stream: those of the package take their place.
constexpr int kRaw = -MAX_WBITS;
constexpr int kLevel = 6;
constexpr int kMemory = 8;
constexpr uInt kPiece = 1U << 16U;

/// zlib reads through a pointer that is not const, and writes nothing there.
Bytef* input(std::string_view bytes) {
    return reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
}

uInt pieceOf(std::size_t size) {
    return static_cast<uInt>(std::min<std::size_t>(size, std::numeric_limits<uInt>::max() / 2));
}

/// A stream of zlib's, released by `End` on every path.
template <int (*End)(z_streamp)>
class Stream {
 public:
    Stream() = default;
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;
    ~Stream() { End(&stream_); }
    z_stream* operator->() { return &stream_; }
    z_stream* get() { return &stream_; }

 private:
    z_stream stream_{};
};

}  // namespace

std::string deflated(std::string_view bytes) {
    Stream<deflateEnd> stream;
    if (deflateInit2(stream.get(), kLevel, Z_DEFLATED, kRaw, kMemory, Z_DEFAULT_STRATEGY) != Z_OK) {
        throw DocumentError("cannot be compressed: there is not enough memory");
    }
    // As large as the bytes is far too large for what documents become.
    std::string out;
    std::array<char, kPiece> piece{};
    std::size_t read = 0;
    int state = Z_OK;
    while (state != Z_STREAM_END) {
        stream->next_in = input(bytes.substr(read));
        stream->avail_in = pieceOf(bytes.size() - read);
        stream->next_out = reinterpret_cast<Bytef*>(piece.data());
        stream->avail_out = kPiece;
        const uInt given = stream->avail_in;
        state = deflate(stream.get(), read + given == bytes.size() ? Z_FINISH : Z_NO_FLUSH);
        read += given - stream->avail_in;
        out.append(piece.data(), kPiece - stream->avail_out);
    }
    return out;
}

std::string inflated(std::string_view data, std::size_t size) {
    Stream<inflateEnd> stream;
    if (inflateInit2(stream.get(), kRaw) != Z_OK) {
        throw DocumentError("cannot be read: there is not enough memory");
    }
    // One byte more than there may be, so that more of them are noticed.
    std::string out(size + 1, '\0');
    std::size_t read = 0;
    std::size_t written = 0;
    int state = Z_OK;
    while (state == Z_OK) {
        stream->next_in = input(data.substr(read));
        stream->avail_in = pieceOf(data.size() - read);
        stream->next_out = reinterpret_cast<Bytef*>(out.data() + written);
        stream->avail_out = pieceOf(out.size() - written);
        const uInt given = stream->avail_in;
        const uInt room = stream->avail_out;
        state = inflate(stream.get(), Z_NO_FLUSH);
        read += given - stream->avail_in;
        written += room - stream->avail_out;
        if (given == stream->avail_in && room == stream->avail_out && state == Z_OK) break;
    }
    if (state != Z_STREAM_END || written != size || read != data.size()) {
        throw DocumentError("is damaged: the compressed data of a part cannot be read");
    }
    out.resize(size);
    return out;
}

std::uint32_t crc32Of(std::string_view bytes) {
    return static_cast<std::uint32_t>(
        crc32_z(0, reinterpret_cast<const Bytef*>(bytes.data()), bytes.size()));
}

}  // namespace huebrush::documents
