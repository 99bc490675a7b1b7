// FetchKit from C#: prints what stands in ../prints.txt. Any .NET for Windows; the process has to be of
// the same bits as the DLL that is registered.
//
//     csc First.cs -r:Microsoft.CSharp.dll          .NET Framework
//     dotnet run                                    .NET, with First.csproj beside it
//
// Bound late, so that no reference is needed. With one to FetchKit.tlb (tlbimp FetchKit.tlb) the same
// calls are bound early: new FetchKit.Interface(). Checked against the type library, not run.
using System;
using System.Runtime.InteropServices;
using System.Text;

static class First
{
    static dynamic Create(string progId)
    {
        Type type = Type.GetTypeFromProgID(progId, true);
        return Activator.CreateInstance(type);
    }

    [STAThread]  // one apartment, one login
    static int Main()
    {
        Console.OutputEncoding = Encoding.UTF8;

        // Keep one Interface for as long as the login is to last: when the last object of the library
        // is gone, the system may let the library go, and the login with it.
        dynamic host = Create("FetchKitHost.Sample");  // the sample account
        dynamic fetch = Create("FetchKit.Interface");
        object connection = host.Connection("main");
        fetch.Initialize(ref connection);              // once per login
        if (fetch.LoginOrganizationName == "")
        {
            Console.Error.WriteLine("The login did not come in.");
            return 1;
        }

        Console.WriteLine("{0} {1}, {2}", fetch.LoginOrganizationCode, fetch.LoginOrganizationName, fetch.LoginDate);

        dynamic activity = fetch.Activity;
        DateTime first = new DateTime(1899, 12, 30), last = first;
        if (activity.GetDateRange("本月", ref first, ref last))
            Console.WriteLine("this month: {0:yyyy-MM-dd} to {1:yyyy-MM-dd}", first, last);

        dynamic rights = fetch.LoginOperatorRight;
        Console.WriteLine("right 12: {0}", rights.UserRight("12") ? "yes" : "no");

        dynamic list = Create("FetchKit.ListSet");
        list.ViewId = 103;                             // loads the view and the operator's list for it
        Console.WriteLine("list 103: SELECT{0} FROM {1} WHERE {2}", list.GetListSelect(), list.ListFrom, list.ListWhere);

        // The login goes with the last object; a later garbage collection would do it as well.
        Marshal.FinalReleaseComObject(list);
        GC.KeepAlive(fetch);
        return 0;
    }
}
