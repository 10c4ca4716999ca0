// Writes large, realistic exports for timing runs: the same seed gives the same bytes.
//
//   corvane_bench_gen FORMAT RECORDS SEED > export
//
// FORMAT is "Access" (comma fields, RECORDS employees), "ADP (extpaydt)" (82-byte records,
// RECORDS main records, a quarter of them followed by a sales continuation) or
// "Aloha v6.5.42" (a labour report, RECORDS job totals over employees of one to three jobs),
// "ADP.csv" (comma fields under a heading line, RECORDS employees) or "Timeclock Plus"
// (comma fields with a quoted name holding a comma, RECORDS rows).
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

// A small, fast, deterministic generator (xorshift64*).
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed * 2654435761u + 1) {}
  std::uint64_t Next() {
    state_ ^= state_ >> 12;
    state_ ^= state_ << 25;
    state_ ^= state_ >> 27;
    return state_ * 2685821657736338717ull;
  }
  // 0 .. n-1
  unsigned Below(unsigned n) { return static_cast<unsigned>(Next() % n); }
  bool Chance(unsigned percent) { return Below(100) < percent; }

 private:
  std::uint64_t state_;
};

constexpr std::string_view kFirst[] = {"Alder", "Birch",  "Cedar", "Dana",  "Ellis", "Flynn",
                                       "Gray",  "Harper", "Ivy",   "Jules", "Kai",   "Lane"};
constexpr std::string_view kLast[] = {"Quinn", "Nolan", "Reyes", "Stone", "Marsh", "Vance",
                                      "Hale",  "Price", "Wells", "Shaw",  "Frost", "Lowe"};
constexpr std::string_view kJobs[] = {"SERVER", "COOK", "BAR", "HOST", "DISH", "MGR"};

// a number right-aligned in width digits, zero-filled
std::string Zeros(long number, int width) {
  char digits[32];
  std::snprintf(digits, sizeof digits, "%0*ld", width, number);
  return digits;
}

class Out {
 public:
  Out() { buffer_.reserve(1 << 20); }
  ~Out() { Flush(); }
  Out& operator<<(std::string_view text) {
    buffer_ += text;
    if (buffer_.size() > (1 << 20) - 256) Flush();
    return *this;
  }
  Out& operator<<(long number) {
    char digits[24];
    std::snprintf(digits, sizeof digits, "%ld", number);
    return *this << std::string_view(digits);
  }
  // hundredths as a figure with two decimals: 4025 -> "40.25"
  Out& Cents(long hundredths) {
    char digits[32];
    std::snprintf(digits, sizeof digits, "%ld.%02ld", hundredths / 100, hundredths % 100);
    return *this << std::string_view(digits);
  }
  Out& Zeros(long number, int width) { return *this << ::Zeros(number, width); }
  void Flush() {
    std::fwrite(buffer_.data(), 1, buffer_.size(), stdout);
    buffer_.clear();
  }

 private:
  std::string buffer_;
};

std::string_view Pick(Random& random, const std::string_view* list, unsigned size) {
  return list[random.Below(size)];
}

void Name(Out& out, Random& random) {
  out << Pick(random, kFirst, std::size(kFirst)) << " " << Pick(random, kLast, std::size(kLast));
}

void Access(Out& out, Random& random, long records) {
  out << "Store,Employee Name,Employee No,Salary,Department,Regular Hours,Overtime Hours,"
         "CTO Hours,Holiday Hours,Bonus,Rate,Week Ending,Cell Phone,Mileage,Other,Supervisor,"
         "Position,Status,Hire Date,Reserved1,Reserved2\r\n";
  for (long n = 0; n < records; ++n) {
    out.Zeros(101 + random.Below(40), 4) << ",";
    Name(out, random);
    out << "," << 1001 + n << ",";
    if (random.Chance(10)) {
      out << "$";
      out.Cents(150000 + random.Below(200000));
    } else {
      out << "$0.00";
    }
    out << "," << static_cast<long>(10 + random.Below(5) * 10) << ",";
    out.Cents(2000 + random.Below(2100)) << ",";
    if (random.Chance(30)) {
      out.Cents(25 * random.Below(40));
    } else {
      out << "0";
    }
    out << "," << (random.Chance(5) ? "8" : "0") << "," << (random.Chance(8) ? "8" : "0") << ",";
    out << (random.Chance(5) ? "$50.00" : "$0.00") << ",";
    out.Cents(1100 + random.Below(1500)) << ",11/20/2026,";
    out << (random.Chance(10) ? "$25.00" : "$0.00") << ",";
    if (random.Chance(15)) {
      out << "$";
      out.Cents(100 + random.Below(5000));
    } else {
      out << "$0.00";
    }
    out << ",$0.00,M. Stone," << Pick(random, kJobs, std::size(kJobs)) << ",A,03/14/2021,,\r\n";
  }
}

// One 82-byte record: 80 characters and the line end.
void Record82(Out& out, const std::string& text) {
  std::string record = text;
  record.resize(80, ' ');
  out << record << "\r\n";
}

void ADPExtpaydt(Out& out, Random& random, long records) {
  Record82(out, "H  XYZ   11202026");
  for (long n = 0; n < records; ++n) {
    const bool sales = random.Chance(25);
    const long sales_total = 1000 + random.Below(9000000);
    std::string r(80, ' ');
    auto put = [&r](size_t offset, const std::string& field) {
      r.replace(offset, field.size(), field);
    };
    put(3, Zeros(1001 + n % 900000, 6));
    put(17, Zeros(100 * (1 + random.Below(5)), 6));
    put(26, Zeros(90000 + random.Below(160000), 7));
    put(37, Zeros(2000 + random.Below(2100), 7));
    put(48, Zeros(random.Chance(30) ? 25 * random.Below(40) : 0, 7));
    put(61, Zeros(random.Chance(40) ? random.Below(30000) : 0, 7));
    if (sales) put(76, Zeros(sales_total / 1000, 4));
    Record82(out, r);
    if (sales) Record82(out, " " + Zeros(sales_total % 1000, 3));
  }
}

void AlohaV6542(Out& out, Random& random, long records) {
  out << "Labor Summary Report,SAMPLE RESTAURANT,11/07/2026 - 11/20/2026,,,,,,,,,,,,\r\n";
  out << "Emp #,Name,Job,Date,In,Out,Shifts,Rate,Reg Hrs,OT Hrs,Total Hrs,Total Pay,CC Tips,"
         "Decl Tips,Tip Sales\r\n";
  long employee = 1001;
  for (long jobs_done = 0; jobs_done < records; ++employee) {
    out << "***  Employee,,,,,,,,,,,,,,\r\n";
    out << employee << ",\"";
    Name(out, random);
    out << "\",,,,,,,,,,,,,\r\n";
    const long jobs = 1 + random.Below(3);
    for (long j = 0; j < jobs && jobs_done < records; ++j, ++jobs_done) {
      const std::string_view job = Pick(random, kJobs, std::size(kJobs));
      const bool tipped = job == "SERVER" || job == "BAR";
      const long rate = tipped ? 213 : 1100 + random.Below(900);
      const long reg = 600 + random.Below(3500);
      const long ot = random.Chance(25) ? 25 * random.Below(30) : 0;
      const long tips = tipped ? random.Below(40000) : 0;
      for (int day = 0; day < 2; ++day) {
        out << ",," << job << ",11/" << static_cast<long>(10 + day) << "/2026,10:00,16:00,1,";
        out.Cents(rate) << ",6.00,0.00,6.00,";
        out.Cents(rate * 6) << ",0.00,0.00,0.00\r\n";
      }
      out << "Total " << job << ":,,,,,,,,,,,,,,\r\n";
      out << ",,,,,,,";
      out.Cents(rate) << ",";
      out.Cents(reg) << ",";
      out.Cents(ot) << ",";
      out.Cents(reg + ot) << ",";
      out.Cents((rate * (reg + ot)) / 100) << ",";
      out.Cents(tips / 4) << ",";
      out.Cents(tips) << ",";
      out.Cents(tips * 7) << "\r\n";
    }
  }
  out << "TOTALS:,,,,,,,,,,,,,,\r\n";
}

// "ADP.csv": a heading line, then one row per employee: company, batch, file number,
// department, shift, regular and overtime hours, and two code-and-amount pairs, mostly empty.
void ADPcsv(Out& out, Random& random, long records) {
  out << "Co Code,Batch ID,File #,Temp Dept,Shift,Reg Hours,O/T Hours,Hours 3 Code,"
         "Hours 3 Amount,Hours 4 Code,Hours 4 Amount\r\n";
  for (long n = 0; n < records; ++n) {
    out << "XYZ,4410," << 1001 + n << ",";
    out.Zeros(100 * (1 + random.Below(5)), 3) << ",";
    out << static_cast<long>(random.Chance(80) ? 1 : 2 + random.Below(2)) << ",";
    out.Cents(2000 + random.Below(2100)) << ",";
    if (random.Chance(30)) out.Cents(25 * (1 + random.Below(40)));
    out << ",";
    if (random.Chance(10)) {
      out << (random.Chance(50) ? "V" : "D") << ",";
      out.Cents(800 * (1 + random.Below(5)));
    } else {
      out << ",";
    }
    out << ",,\r\n";
  }
}

// "Timeclock Plus": no heading; one row per employee and pay code, the name quoted as
// "Last, First" so that it holds a comma, the hours in hundredths.
void TimeclockPlus(Out& out, Random& random, long records) {
  long employee = 1001;
  for (long n = 0; n < records; ++employee) {
    const std::string_view first = Pick(random, kFirst, std::size(kFirst));
    const std::string_view last = Pick(random, kLast, std::size(kLast));
    const long shift = random.Chance(85) ? 1 : 2;
    const long division = 10 + random.Below(4);
    const bool overtime = random.Chance(30);
    for (int code = 0; code < (overtime ? 2 : 1) && n < records; ++code, ++n) {
      out << employee << ",\"" << last << ", " << first << "\"," << shift << "," << division << ","
          << (code == 0 ? "REGHR" : "OTHR") << ",";
      out << static_cast<long>(code == 0 ? 2000 + random.Below(2100) : 25 * (1 + random.Below(40)));
      out << ",11/20/2026,";
      out.Cents(1100 + random.Below(1500)) << ",,\r\n";
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "usage: %s FORMAT RECORDS SEED\n", argv[0]);
    return 2;
  }
  const std::string_view format = argv[1];
  const long records = std::strtol(argv[2], nullptr, 10);
  Random random(std::strtoull(argv[3], nullptr, 10));
  Out out;
  if (format == "Access") {
    Access(out, random, records);
  } else if (format == "ADP (extpaydt)") {
    ADPExtpaydt(out, random, records);
  } else if (format == "Aloha v6.5.42") {
    AlohaV6542(out, random, records);
  } else if (format == "ADP.csv") {
    ADPcsv(out, random, records);
  } else if (format == "Timeclock Plus") {
    TimeclockPlus(out, random, records);
  } else {
    std::fprintf(stderr, "unknown format: %s\n", argv[1]);
    return 2;
  }
  return 0;
}
