#pragma once

#include <memory>
#include <string>

namespace zelvo::pharmacy {

/// The pharmacy's web pages on 127.0.0.1: POST /cost, POST /cost-update, GET /zip?find=, GET /notice/KEY and
/// the pictures beside it.
class Pages {
public:
    explicit Pages(std::string databasePath);
    ~Pages();
    Pages(const Pages&) = delete;
    Pages& operator=(const Pages&) = delete;

    /// Takes the port, any free one for 0, and gives the one taken; 0 when it cannot be had.
    int bind(int port);
    /// Serves on a thread of its own until `stop` or the end of this object.
    void start();
    void stop();
    /// False once the serving has ended, by itself or not.
    bool isServing() const;

private:
    struct Insides;
    std::unique_ptr<Insides> insides_;
};

}  // namespace zelvo::pharmacy
