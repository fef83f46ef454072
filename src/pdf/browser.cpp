#include "pdf/browser.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QSize>
#include <QStandardPaths>
#include <QUrl>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/socket.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "base/environment.h"

namespace korvane::pdf {

namespace {

// How long a browser may take to start, or for a page.
constexpr std::chrono::seconds kPatience(30);
// How long it may take to end by itself.
constexpr std::chrono::milliseconds kPatienceAtEnd(2000);

constexpr double kPointsPerInch = 72;

std::vector<std::string> WordsFor(const QString& program, const QString& profile) {
    std::vector<std::string> words = {program.toStdString(),
                                      "--headless",
                                      "--remote-debugging-pipe",
                                      "--disable-gpu",
                                      "--disable-extensions",
                                      "--disable-background-networking",
                                      "--disable-component-update",
                                      "--disable-sync",
                                      "--disable-dev-shm-usage",
                                      "--hide-scrollbars",
                                      "--no-first-run",
                                      "--user-data-dir=" + profile.toStdString()};
    if (geteuid() == 0)
        words.emplace_back("--no-sandbox");  // it refuses to start otherwise
    return words;
}

// Starts a program that has the wire where it expects it, and nothing to say to people. Returns the error's number.
int Spawn(pid_t& process, const QString& program, const QString& profile, int wire) {
    auto words = WordsFor(program, profile);
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (auto& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const int place : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&actions, place, "/dev/null", O_RDWR, 0);
    // The protocol's two directions.
    for (const int place : {3, 4})
        posix_spawn_file_actions_adddup2(&actions, wire, place);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    // It has processes of its own, which are to end with it.
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    const int error = posix_spawn(&process, arguments[0], &actions, &attributes, arguments.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return error;
}

std::string Reason(int error) {
    return std::system_category().message(error);
}

// Whether the process has ended; waits for that until then.
bool HasEnded(pid_t process, QDeadlineTimer until) {
    constexpr std::chrono::milliseconds kNap(5);
    for (;; std::this_thread::sleep_for(kNap)) {
        const auto ended = waitpid(process, nullptr, WNOHANG);
        if (ended == process || (ended < 0 && errno != EINTR))
            return true;
        if (until.hasExpired())
            return false;
    }
}

}  // namespace

QString FindBrowser() {
    auto named = QString::fromLocal8Bit(ExactEnvironmentValue("KORVANE_BROWSER").c_str());
    if (named == QLatin1String("none"))
        return {};
    if (!named.isEmpty())
        return named;
    for (const auto* const name : {"chromium", "chromium-browser"})
        if (auto program = QStandardPaths::findExecutable(QLatin1String(name)); !program.isEmpty())
            return program;
    return {};
}

Browser::Browser(const QString& program) : patience_(kPatience) {
    if (!profile_.isValid())
        throw BrowserError("no folder can be made for its profile: " + profile_.errorString().toStdString());
    std::array<int, 2> ends{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
        throw BrowserError(Reason(errno));
    wire_ = Descriptor(ends[0]);
    const Descriptor its_end(ends[1]);
    Start(program, its_end.number());
}

Browser::~Browser() {
    End();
}

void Browser::Start(const QString& program, int wire) {
    if (const int error = Spawn(process_, program, profile_.path(), wire); error != 0) {
        process_ = 0;
        throw BrowserError(program.toStdString() + " can't be started: " + Reason(error));
    }
}

void Browser::Open() {
    const auto target = Call("Target.createTarget", {{"url", "about:blank"}}).value("targetId");
    session_ = Call("Target.attachToTarget", {{"targetId", target}, {"flatten", true}}).value("sessionId").toString();
    Call("Page.enable", {});
}

QByteArray Browser::Print(const QString& page, const QPageSize& paper) {
    patience_ = QDeadlineTimer(kPatience);
    if (session_.isEmpty())
        Open();
    loaded_ = false;
    const auto address = QString::fromLatin1(QUrl::fromLocalFile(QFileInfo(page).absoluteFilePath()).toEncoded());
    const auto went = Call("Page.navigate", {{"url", address}});
    if (const auto error = went.value("errorText").toString(); !error.isEmpty())
        throw BrowserError(error.toStdString());
    while (!loaded_)
        Next();
    const auto size = paper.sizePoints();
    const auto made = Call("Page.printToPDF", {{"paperWidth", size.width() / kPointsPerInch},
                                               {"paperHeight", size.height() / kPointsPerInch},
                                               {"preferCSSPageSize", true},
                                               {"generateTaggedPDF", true},
                                               {"generateDocumentOutline", true}});
    auto bytes = QByteArray::fromBase64(made.value("data").toString().toLatin1());
    if (!bytes.startsWith("%PDF"))
        throw BrowserError("it made no PDF file");
    return bytes;
}

QJsonObject Browser::Call(const QString& method, const QJsonObject& parameters) {
    const int number = ++calls_;
    QJsonObject call = {{"id", number}, {"method", method}, {"params", parameters}};
    if (!session_.isEmpty())
        call.insert("sessionId", session_);
    Send(QJsonDocument(call).toJson(QJsonDocument::Compact) + '\0');
    for (;;) {
        const auto message = Next();
        if (message.value("id").toInt() != number)
            continue;
        if (message.contains("error"))
            throw BrowserError(message.value("error").toObject().value("message").toString().toStdString());
        return message.value("result").toObject();
    }
}

QJsonObject Browser::Next() {
    qsizetype end = -1;
    while ((end = received_.indexOf('\0')) < 0)
        Read();
    auto message = QJsonDocument::fromJson(received_.left(end)).object();
    received_.remove(0, end + 1);
    loaded_ = loaded_ || message.value("method") == QLatin1String("Page.loadEventFired");
    return message;
}

void Browser::Send(const QByteArray& bytes) const {
    const auto sent = send(wire_.number(), bytes.constData(), static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL);
    if (sent != bytes.size())
        throw BrowserError("it doesn't listen");
}

void Browser::Read() {
    pollfd wire = {wire_.number(), POLLIN, 0};
    const int ready = poll(&wire, 1, static_cast<int>(patience_.remainingTime()));
    if (ready < 0 && errno == EINTR)
        return;
    if (ready <= 0)
        throw BrowserError("it took too long");
    constexpr std::size_t kAtOnce = 65536;
    std::array<char, kAtOnce> bytes{};
    const auto count = read(wire.fd, bytes.data(), bytes.size());
    if (count <= 0)
        throw BrowserError("it ended");
    received_.append(bytes.data(), count);
}

void Browser::End() {
    if (process_ <= 0)
        return;
    wire_.Close();  // which tells it to end
    if (!HasEnded(process_, QDeadlineTimer(kPatienceAtEnd))) {
        kill(-process_, SIGKILL);
        HasEnded(process_, QDeadlineTimer(kPatienceAtEnd));
    }
}

}  // namespace korvane::pdf
