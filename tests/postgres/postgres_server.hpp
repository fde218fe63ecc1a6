#pragma once
#include <libpq-fe.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace tarnbrook {

// A PostgreSQL server of Debian's package, made for one test program in a temporary folder and
// reached through a Unix socket there only; stopped and removed when it goes. initdb refuses
// to run as root, so as root the server runs as the package's "postgres" user.
class PostgresServer {
public:
  PostgresServer() {
    const std::string bin = BinFolder();
    if (bin.empty()) {
      problem_ = "PostgreSQL's server (Debian's postgresql package) is not installed";
      return;
    }
    char folder[] = "/tmp/tarnbrook-pg-XXXXXX";
    if (!mkdtemp(folder)) {
      problem_ = "no temporary folder";
      return;
    }
    folder_ = folder;
    std::string as;
    if (geteuid() == 0) {
      const passwd* user = getpwnam("postgres");
      if (!user || chown(folder, user->pw_uid, user->pw_gid) != 0) {
        problem_ = "running as root, and there is no postgres user to run the server";
        return;
      }
      as = "runuser -u postgres -- ";
    }
    const std::string data = folder_ + "/data";
    const std::string quiet = " >>" + folder_ + "/log 2>&1";
    if (std::system((as + bin + "/initdb -D " + data +
                     " -A trust -U tarnbrook -E UTF8 --locale=C --no-sync" + quiet)
                        .c_str()) != 0 ||
        std::system((as + bin + "/pg_ctl -D " + data + " -w -o \"-k " + folder_ +
                     " -c listen_addresses='' -c fsync=off\" start" + quiet)
                        .c_str()) != 0) {
      problem_ = "the server did not start; see " + folder_ + "/log";
      return;
    }
    stop_ = as + bin + "/pg_ctl -D " + data + " -w -m fast stop" + quiet;
    connection_ = PQconnectdb(("host=" + folder_ + " dbname=postgres user=tarnbrook").c_str());
    if (PQstatus(connection_) != CONNECTION_OK)
      problem_ = PQerrorMessage(connection_);
  }
  ~PostgresServer() {
    if (connection_)
      PQfinish(connection_);
    if (!stop_.empty())
      std::system(stop_.c_str());
    if (!folder_.empty() && problem_.empty())
      std::filesystem::remove_all(folder_);
  }
  PostgresServer(const PostgresServer&) = delete;
  PostgresServer& operator=(const PostgresServer&) = delete;

  // Why there is no server, or "" when there is one.
  const std::string& Problem() const { return problem_; }
  PGconn* Connection() const { return connection_; }

private:
  // The newest installed server's programs.
  static std::string BinFolder() {
    std::string newest;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/usr/lib/postgresql", error))
      if (std::filesystem::exists(entry.path() / "bin/initdb") && entry.path().string() > newest)
        newest = entry.path().string();
    return newest.empty() ? "" : newest + "/bin";
  }

  std::string problem_, folder_, stop_;
  PGconn* connection_ = nullptr;
};

} // namespace tarnbrook
